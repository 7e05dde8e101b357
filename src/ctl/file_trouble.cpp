#include "ctl/file_trouble.h"

#include <cerrno>
#include <system_error>

namespace kzq::ctl {
namespace {

std::string remedy(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
            return " Free some space or choose another folder.";
        case EFBIG:
            return " Choose a folder that allows files of this size.";
        case EROFS:
        case EACCES:
        case EPERM:
            return " Choose a folder that you can write to.";
        default:
            return {};
    }
}

}  // namespace

std::string fileTrouble(int error) {
    return std::generic_category().message(error) + "." + remedy(error);
}

}  // namespace kzq::ctl
