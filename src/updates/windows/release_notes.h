#pragma once

#include <QString>
#include <string>

namespace kzq {

/// Release notes from the web as plain text to show: UTF-8 in, plain or HTML. Of HTML only the words, the
/// line breaks and the entries of lists stay; nothing in it is followed or loaded. Entries of lists, and in
/// plain text lines that begin with "- " or "* ", begin with `notesBullet`. Any thread.
QString plainNotes(const std::string& notes);

}  // namespace kzq
