#include "tests/packaging/ShellAtTerminal.h"

#include "tests/SourceFolder.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <pty.h>
#include <stdexcept>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace quarnel::test {

namespace {

constexpr std::string_view Prompt = "ready>";
constexpr char TabKey = '\t';
constexpr char AllKey = '\x14'; // Ctrl+T, bound below

std::string Completions() {
    return SourceFolder() + "/packaging/completions";
}

/// What both shells read at their start: programs that print their words between braces.
std::string StandIns() {
    std::string text;
    for (const char* program : {"quarnel", "quarnel-cli", "quarnel-plot"})
        text += std::string("function ") + program +
                R"( { printf '{'; printf '%s|' "$@"; printf '}\n'; })" + "\n";
    return text;
}

std::string BashStart() {
    return "PS1='" + std::string(Prompt) +
           "'\n"
           "BASH_COMPLETION_USER_DIR=" +
           SourceFolder() +
           "/packaging\n"
           "source /usr/share/bash-completion/bash_completion\n"
           "bind 'set enable-bracketed-paste off'\n"
           "bind 'set bell-style none'\n"
           "bind '\"\\C-t\": insert-completions'\n" +
           StandIns();
}

std::string ZshStart() {
    return "PS1='" + std::string(Prompt) +
           "'\n"
           "unset zle_bracketed_paste\n"
           "unsetopt prompt_cr prompt_sp beep\n"
           "fpath=(" +
           Completions() +
           " $fpath)\n"
           "autoload -Uz compinit && compinit -u -d $ZDOTDIR/dump\n"
           "zstyle ':completion:all-matches:*' completer _all_matches _complete\n"
           "zstyle ':completion:all-matches:*' insert true\n"
           "zle -C all-matches complete-word _generic\n"
           "bindkey '^T' all-matches\n" +
           StandIns();
}

[[noreturn]] void BecomeShell(const std::string& shell, const std::string& folder) {
    setenv("HOME", folder.c_str(), 1);
    setenv("ZDOTDIR", folder.c_str(), 1);
    setenv("TERM", "dumb", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    if (shell == "bash")
        execlp("bash", "bash", "--noprofile", "--rcfile", (folder + "/.bashrc").c_str(), "-i",
               nullptr);
    else
        execlp("zsh", "zsh", "-d", "-i", nullptr);
    std::perror(shell.c_str());
    _exit(127);
}

std::vector<std::string> Split(std::string_view text) {
    std::vector<std::string> words;
    for (std::size_t end = text.find('|'); end != std::string_view::npos; end = text.find('|')) {
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return words;
}

} // namespace

ShellAtTerminal::ShellAtTerminal(const std::string& shell, const std::string& folder) {
    std::ofstream(folder + "/.bashrc") << BashStart();
    std::ofstream(folder + "/.zshrc") << ZshStart();
    // So wide that no line is broken.
    winsize size{50, 20000, 0, 0};
    process_ = forkpty(&keyboard_, nullptr, nullptr, &size);
    if (process_ < 0)
        throw std::runtime_error("no terminal");
    if (process_ == 0)
        BecomeShell(shell, folder);
    ReadUntil(Prompt);
}

ShellAtTerminal::~ShellAtTerminal() {
    close(keyboard_);
    waitpid(process_, nullptr, 0);
}

void ShellAtTerminal::Type(std::string_view keys) const {
    if (write(keyboard_, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
        throw std::runtime_error("the terminal takes no keys");
}

std::string ShellAtTerminal::ReadUntil(std::string_view text) {
    std::size_t found = unread_.find(text);
    while (found == std::string::npos) {
        std::array<char, 4096> bytes;
        const ssize_t count = read(keyboard_, bytes.data(), bytes.size());
        if (count <= 0)
            throw std::runtime_error("the shell ended after: " + unread_);
        unread_.append(bytes.data(), static_cast<std::size_t>(count));
        found = unread_.find(text);
    }
    std::string before = unread_.substr(0, found);
    unread_.erase(0, found + text.size());
    return before;
}

std::vector<std::string> ShellAtTerminal::WordsAfter(std::string_view line, std::string_view where,
                                                     char key) {
    Type("cd '" + std::string(where) + "'\r");
    ReadUntil(Prompt);
    Type(std::string(line) + key + "\r");
    ReadUntil("{");
    std::string words = ReadUntil("}");
    ReadUntil(Prompt);
    return Split(words);
}

std::vector<std::string> ShellAtTerminal::WordsAfterTab(std::string_view line,
                                                        std::string_view where) {
    return WordsAfter(line, where, TabKey);
}

std::vector<std::string> ShellAtTerminal::WordsAfterAll(std::string_view line,
                                                        std::string_view where) {
    return WordsAfter(line, where, AllKey);
}

} // namespace quarnel::test
