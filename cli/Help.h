// The texts of --help that are longer than a line.
#pragma once

namespace orvane::cli::help {

extern const char* const program;  ///< after the list of commands: addressing, values, exit codes
extern const char* const newJob;   ///< the examples of each command
extern const char* const set;
extern const char* const get;
extern const char* const show;
extern const char* const xml;
extern const char* const codes;
extern const char* const duplicate;
extern const char* const attach;
extern const char* const link;
extern const char* const list;
extern const char* const watch;
extern const char* const exportJobs;
extern const char* const report;
extern const char* const diff;
extern const char* const check;

}  // namespace orvane::cli::help
