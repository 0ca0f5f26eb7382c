// SPDX-License-Identifier: MIT
#include "platform/linux/exec_command.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace dwellkey {
namespace {

enum class Grammar {
    exec,        ///< the whole line is one command
    shellScript, ///< an unquoted operator ends the first command
};

/// Divides a line into words by the shell's quoting rules, of which those of Exec are a part. Real
/// entries also use single quotes and bare backslashes, so these are taken for what they mean.
class WordSplitter {
public:
    WordSplitter(std::string_view line, Grammar grammar) : line_(line), grammar_(grammar) {}

    std::variant<CommandWords, ExecProblem> split() {
        while (at_ < line_.size() && !isEnd(line_[at_])) {
            const char c = line_[at_++];
            if (c == ' ' || c == '\t' || c == '\n') {
                finishWord();
            } else if (c == '\\' && at_ < line_.size()) {
                append(line_[at_++]);
            } else if (c == '"' || c == '\'') {
                if (!readQuoted(c)) {
                    return ExecProblem{"Exec has a quotation mark without its pair"};
                }
            } else {
                append(c);
            }
        }
        finishWord();
        return std::move(words_);
    }

private:
    [[nodiscard]] bool isEnd(char c) const {
        return grammar_ == Grammar::shellScript
               && std::string_view(";&|<>()\n").find(c) != std::string_view::npos;
    }

    void append(char c) {
        word_ += c;
        inWord_ = true;
    }

    bool readQuoted(char quote) {
        inWord_ = true;
        while (at_ < line_.size() && line_[at_] != quote) {
            const bool escapes =
                quote == '"' && line_[at_] == '\\' && at_ + 1 < line_.size()
                && std::string_view("\"`$\\").find(line_[at_ + 1]) != std::string_view::npos;
            at_ += escapes ? 1 : 0;
            word_ += line_[at_++];
        }
        return at_++ < line_.size();
    }

    void finishWord() {
        if (std::exchange(inWord_, false)) {
            words_.push_back(std::exchange(word_, {}));
        }
    }

    std::string_view line_;
    Grammar grammar_;
    std::size_t at_ = 0;
    CommandWords words_;
    std::string word_;
    bool inWord_ = false;
};

std::string withoutFieldCodes(std::string_view word) {
    std::string result;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != '%') {
            result += word[i];
        } else if (i + 1 < word.size() && word[++i] == '%') {
            result += '%';
        }
    }
    return result;
}

bool isAssignment(std::string_view word) {
    const std::size_t equals = word.find('=');
    return equals != 0 && equals != std::string_view::npos
           && word.substr(0, equals).find('/') == std::string_view::npos;
}

void dropFront(CommandWords& words, std::size_t count) {
    words.erase(words.begin(),
                words.begin() + static_cast<std::ptrdiff_t>(std::min(count, words.size())));
}

CommandWords from(const CommandWords& words, CommandWords::const_iterator first) {
    return {first, words.end()};
}

/// The command behind "env [option ...] [NAME=value ...]".
CommandWords behindEnv(CommandWords words) {
    dropFront(words, 1);
    while (!words.empty() && (words.front().starts_with('-') || isAssignment(words.front()))) {
        const std::string& word = words.front();
        const bool takesNext =
            word == "-u" || word == "-C" || word == "--unset" || word == "--chdir";
        dropFront(words, takesNext ? 2 : 1);
    }
    return words;
}

/// The first command of a shell script, as far as it can be told without running it.
CommandWords firstShellCommand(std::string_view script) {
    auto split = WordSplitter(script, Grammar::shellScript).split();
    auto* words = std::get_if<CommandWords>(&split);
    if (words == nullptr) {
        return {};
    }
    while (!words->empty() && (words->front() == "exec" || isAssignment(words->front()))) {
        dropFront(*words, 1);
    }
    const bool unknowable = words->empty() || words->front() == "cd"
                            || words->front().find_first_of("$`") != std::string::npos;
    return unknowable ? CommandWords{} : std::move(*words);
}

bool isShell(std::string_view name) {
    constexpr std::array shells = {"sh", "bash", "dash", "zsh", "ksh", "ash", "fish"};
    return std::ranges::find(shells, name) != shells.end();
}

/// "python3.11" and "python" are the same to us.
std::string_view withoutVersion(std::string_view name) {
    return name.substr(0, name.find_last_not_of("0123456789.") + 1);
}

bool isOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-';
}

/// What "sh -c 'foo'" or "sh foo" runs, as words of their own.
CommandWords behindShell(const CommandWords& words) {
    bool commandFollows = false;
    for (auto word = words.begin() + 1; word != words.end(); ++word) {
        if (isOption(*word)) {
            commandFollows |= !word->starts_with("--") && word->find('c') != std::string::npos;
        } else {
            return commandFollows ? firstShellCommand(*word) : from(words, word);
        }
    }
    return {};
}

/// What "python3 -m foo", "python3 /usr/bin/foo" or "java -jar foo.jar" runs.
CommandWords behindInterpreter(const CommandWords& words) {
    const bool isJava = baseName(words.front()) == "java";
    for (auto word = words.begin() + 1; word != words.end(); ++word) {
        const bool namesNext = isJava ? *word == "-jar" : *word == "-m";
        if (namesNext) {
            return from(words, word + 1);
        }
        if (*word == "-c" || *word == "-e" || *word == "--eval") {
            return {};
        }
        if (!isJava && !isOption(*word)) {
            return from(words, word);
        }
    }
    return {};
}

/// The program of "flatpak run [option ...] APPLICATION [argument ...]"; of "snap run" alike.
std::optional<Program> sandboxProgram(const CommandWords& words) {
    constexpr std::string_view commandOption = "--command=";
    std::optional<std::string> command;
    for (auto word = words.begin() + 2; word < words.end(); ++word) {
        if (word->starts_with(commandOption)) {
            command = word->substr(commandOption.size());
        } else if (!isOption(*word)) {
            // "@@u" and "@@" only enclose the files that are handed through the sandbox's wall.
            const bool told = std::any_of(word + 1, words.end(), [](const std::string& argument) {
                return !argument.starts_with("@@");
            });
            std::string name = command.value_or(*word);
            return name.empty() ? std::nullopt : std::optional(Program{std::move(name), told});
        }
    }
    return std::nullopt;
}

} // namespace

std::variant<CommandWords, ExecProblem> parseExec(std::string_view value) {
    auto split = WordSplitter(value, Grammar::exec).split();
    auto* words = std::get_if<CommandWords>(&split);
    if (words == nullptr) {
        return split;
    }
    CommandWords result;
    for (const std::string& word : *words) {
        std::string plain = withoutFieldCodes(word);
        if (!plain.empty() || word.empty()) {
            result.push_back(std::move(plain));
        }
    }
    if (result.empty() || result.front().empty()) {
        return ExecProblem{"Exec names no program"};
    }
    return result;
}

std::optional<Program> programOf(CommandWords words) {
    constexpr int mostWrappers = 8;
    for (int depth = 0; depth < mostWrappers && !words.empty(); ++depth) {
        const std::string_view name = baseName(words.front());
        if (name.empty()) {
            return std::nullopt;
        }
        if ((name == "flatpak" || name == "snap") && words.size() > 1 && words[1] == "run") {
            return sandboxProgram(words);
        }
        if (name == "env") {
            words = behindEnv(std::move(words));
        } else if (isShell(name)) {
            words = behindShell(words);
        } else if (isInterpreter(name)) {
            words = behindInterpreter(words);
        } else {
            return Program{words.front(), words.size() > 1};
        }
    }
    return std::nullopt;
}

bool isInterpreter(std::string_view executable) {
    constexpr std::array interpreters = {
        "python", "pypy", "perl", "ruby",      "node",     "nodejs", "gjs",   "gjs-console", "lua",
        "php",    "java", "mono", "mono-sgen", "electron", "guile",  "tclsh", "wish"};
    const std::string_view name = baseName(executable);
    return isShell(name)
           || std::ranges::find(interpreters, withoutVersion(name)) != interpreters.end();
}

std::string_view baseName(std::string_view path) {
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

} // namespace dwellkey
