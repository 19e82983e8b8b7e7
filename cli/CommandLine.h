// The program: its commands, their arguments, its exit codes.
#pragma once

#include "cli/Commands.h"
#include "cli/Failure.h"

namespace orvane::cli {

/// The standard streams of the program.
Console standardConsole();

/// Runs the command that the arguments (in UTF-8, without the program's name) say. An error is one sentence
/// on `console.err`; nothing is thrown.
ExitCode run(const Strings& arguments, const Console& console);

}  // namespace orvane::cli
