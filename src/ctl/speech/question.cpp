#include "ctl/speech/question.h"

#include <termios.h>
#include <unistd.h>

#include <iostream>

namespace kzq::ctl {

Answer askOnTerminal(const std::string& question) {
    if (::isatty(STDIN_FILENO) != 1) {
        return Answer::nobody;
    }
    // What was typed before the question is no answer to it.
    ::tcflush(STDIN_FILENO, TCIFLUSH);
    std::cerr << question << " [y/N] " << std::flush;
    std::string line;
    std::getline(std::cin, line);
    const bool yes = line == "y" || line == "Y" || line == "yes" || line == "Yes" || line == "YES";
    return yes ? Answer::yes : Answer::no;
}

}  // namespace kzq::ctl
