#pragma once

#include <QString>
#include <string>

namespace kzq {

/// Release notes from the web as plain text to show: UTF-8 in, plain or HTML. Of HTML only the words, the
/// line breaks and the list entries remain; nothing in it is followed or loaded. List entries, and lines of
/// plain text that start with "- " or "* ", start with `notesBullet`. Any thread.
QString plainNotes(const std::string& notes);

}  // namespace kzq
