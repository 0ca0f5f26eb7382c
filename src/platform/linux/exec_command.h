// SPDX-License-Identifier: MIT
// Command lines, as desktop entries state them and as running processes show them. std only.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace dwellkey {

using CommandWords = std::vector<std::string>;

struct ExecProblem {
    std::string cause; ///< one line, for a log
};

/// The words of an Exec value (already unescaped as a string): quoting resolved, "%%" turned into
/// "%", other field codes taken out. At least one word, the first one not empty.
std::variant<CommandWords, ExecProblem> parseExec(std::string_view value);

/// What a command line runs in the end.
struct Program {
    /// An absolute path, or a name to be found in PATH. For a sandbox the command inside, or else
    /// the sandboxed application's own id.
    std::string name;
    /// Whether it is told to do something particular: "editor --preferences" is a worse witness of
    /// what an editor's window belongs to than "editor".
    bool hasArguments = false;
};

/// Looks through `env`, `sh -c`, `flatpak run`, `snap run` and interpreters ("python3 /usr/bin/foo"
/// runs /usr/bin/foo). Absent when no single program can be named.
std::optional<Program> programOf(CommandWords words);

/// Whether an executable of this path runs other people's programs, and so says nothing of which
/// application its process is.
bool isInterpreter(std::string_view executable);

/// What follows the last slash.
std::string_view baseName(std::string_view path);

} // namespace dwellkey
