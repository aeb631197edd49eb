#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace quarnel::test {

/// A shell with a keyboard: an interactive bash or zsh on a terminal of its own, in which the
/// completions of the programs are set up as an installed package sets them up. The programs
/// themselves are stood in for by functions that tell their words.
class ShellAtTerminal {
public:
    /// `shell` is "bash" or "zsh", `folder` an empty folder for its files.
    ShellAtTerminal(const std::string& shell, const std::string& folder);
    ~ShellAtTerminal();
    ShellAtTerminal(const ShellAtTerminal&) = delete;
    ShellAtTerminal& operator=(const ShellAtTerminal&) = delete;

    /// Types `line` and Tab and Enter in the folder `where`; the words that the program then got.
    std::vector<std::string> WordsAfterTab(std::string_view line, std::string_view where);
    /// The same with the key that puts everything into the line that Tab would offer.
    std::vector<std::string> WordsAfterAll(std::string_view line, std::string_view where);

private:
    void Type(std::string_view keys) const;
    /// Reads on until `text` is on the screen; hands back what came before it.
    std::string ReadUntil(std::string_view text);
    std::vector<std::string> WordsAfter(std::string_view line, std::string_view where, char key);

    pid_t process_ = -1;
    int keyboard_ = -1;
    std::string unread_;
};

} // namespace quarnel::test
