#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kzq {

/// Who must not be found in a report.
struct Owner {
    std::filesystem::path home;  ///< empty for none
    std::string user;            ///< the login name; empty if it is not known
};

/// Takes out of a text what says who the user is: the home folder becomes "~", the login name "<user>".
/// Unless names of files are wanted, each becomes "<file 1>", "<file 2>" and so on, the same one the same
/// each time. What is no name is sometimes hidden with it; a name never stays. One thread at a time.
class HiddenNames {
  public:
    /// `known`: names and paths of files as they may stand in a text. Paths are found without that, but only
    /// their beginning is certain.
    HiddenNames(Owner owner, bool namesWanted, std::vector<std::string> known);

    /// A path that does not stand in quotes and is not known ends with the line.
    std::string inSentence(std::string_view text) { return without(text, false); }
    /// ... or, as a shell reads it, with the word.
    std::string inCommand(std::string_view text) { return without(text, true); }

  private:
    std::string without(std::string_view text, bool inWords);
    std::string withoutPaths(std::string_view text, bool inWords);
    std::string markOf(const std::string& name);

    Owner owner_;
    bool namesWanted_;
    std::vector<std::string> known_;  ///< longest first
    std::map<std::string, std::size_t> numbers_;
};

}  // namespace kzq
