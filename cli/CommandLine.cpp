#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/Help.h"
#include "cli/Suggest.h"
#include "cli/Terminal.h"
#include "orvane_version.h"

namespace orvane::cli {

namespace {

const char* const kJobFile = "Job file";
const char* const kFolder = "Documents folder";
const char* const kPages = "Load the pages of this folder";

// Declares the commands; each keeps its options as long as the parser lives.
class Declaration {
 public:
  Declaration(CLI::App& app, const Console& console) : app_(app), console_(console) {}

  void declareAll() {
    declareNew();
    declareSet();
    declareGet();
    declareShow();
    declareXml();
    declareCodes();
    declareDuplicate();
    declareAttach();
    declareLink();
    declareList();
    declareWatch();
    declareExport();
    declareReport();
    declareDiff();
    declareCheck();
  }

  /// What the command has come to that the parser has run.
  ExitCode result() const { return result_; }

 private:
  template <class Options, class Result>
  std::pair<CLI::App*, std::shared_ptr<Options>> command(const char* name, const char* description,
                                                         const char* examples,
                                                         Result (*action)(const Console&, const Options&)) {
    CLI::App* command = app_.add_subcommand(name, description);
    command->footer(examples);
    auto options = std::make_shared<Options>();
    command->callback([options, action, this] {
      if constexpr (std::is_void_v<Result>) {
        action(console_, *options);
      } else {
        result_ = action(console_, *options);
      }
    });
    return {command, options};
  }

  template <class Value>
  static CLI::Option* argument(CLI::App& command, const char* name, Value& value, const char* description) {
    return command.add_option(name, value, description)->type_name("");
  }

  void declareNew() {
    const auto [command, options] = this->command("new", "Make a job", help::newJob, newJob);
    argument(*command, "KIND", options->kind, "Kind of the job")->required();
    argument(*command, "ID", options->id, "Identifier, also the name of the job file")->required();
    argument(*command, "FOLDER", options->folder, "Documents folder, which must exist")->required();
    argument(*command, "ASSIGNMENT", options->assignments, "Path=value ...");
    command->add_flag("--linked", options->linked, "Use the extension of a job that is linked to another");
    argument(*command, "--of", options->inner, "Kind of the document inside a pbl or anteprima")
        ->type_name("KIND");
    command->add_flag("--force", options->force, "Use a job file that exists, with what it holds");
  }

  void declareSet() {
    const auto [command, options] = this->command("set", "Change members of a job", help::set, setMembers);
    argument(*command, "JOBFILE", options->file, kJobFile)->required();
    argument(*command, "ASSIGNMENT", options->assignments, "Path=value ...")->required();
    argument(*command, "--pages", options->pages, kPages)->type_name("FOLDER");
  }

  void declareGet() {
    const auto [command, options] = this->command("get", "Print members of a job", help::get, getMembers);
    argument(*command, "JOBFILE", options->file, kJobFile)->required();
    argument(*command, "PATH", options->paths, "Path of a member ...")->required();
    argument(*command, "--pages", options->pages, kPages)->type_name("FOLDER");
    command->add_flag("--raw", options->raw, "Numbers as in the job file, for codes, dates and truth values");
  }

  void declareShow() {
    const auto [command, options] = this->command("show", "Describe a job", help::show, show);
    argument(*command, "JOBFILE", options->file, kJobFile)->required();
    argument(*command, "--pages", options->pages, kPages)->type_name("FOLDER");
    command->add_flag("--all", options->all, "All members, those of a new document too");
    command->add_flag("--json", options->json, "All members, as JSON");
  }

  void declareXml() {
    const auto [command, options] = this->command("xml", "Print a job as XML", help::xml, printXml);
    argument(*command, "JOBFILE", options->file, kJobFile)->required();
    command->add_flag("--pretty", options->pretty, "Indented, for reading");
  }

  void declareCodes() {
    const auto [command, name] = this->command<std::string>(
        "codes", "List codes with names, numbers and texts", help::codes, printCodes);
    argument(*command, "CLASS", *name, "Only this class or enumeration");
  }

  void declareDuplicate() {
    const auto [command, options] =
        this->command("duplicate", "Copy a print job", help::duplicate, duplicate);
    argument(*command, "JOBFILE", options->file, kJobFile)->required();
    argument(*command, "NEWID", options->id, "Identifier of the copy")->required();
    argument(*command, "FOLDER", options->folder, "Documents folder of the copy, else that of the job");
  }

  void declareAttach() {
    const auto [command, options] = this->command("attach", "Attach files to a job", help::attach, attach);
    argument(*command, "JOBFILE", options->file, kJobFile)->required();
    argument(*command, "FILE", options->files, "File to attach ...")->required();
    command->add_flag("--missing", options->missing, "Attach files that do not exist (here) too");
  }

  void declareLink() {
    const auto [command, options] = this->command("link", "Link other jobs to a job", help::link, link);
    argument(*command, "JOBFILE", options->file, kJobFile)->required();
    argument(*command, "OTHER", options->others, "Job file to link ...")->required();
  }

  static void declareFilter(CLI::App& command, FilterOptions& filter) {
    argument(command, "--kind", filter.kinds, "Only jobs of this kind")
        ->type_name("KIND")
        ->allow_extra_args(false);
    argument(command, "--state", filter.states, "Only jobs in this state")
        ->type_name("STATE")
        ->allow_extra_args(false);
    command.add_flag("--errors", filter.errors, "Only jobs with errors");
  }

  void declareList() {
    const auto [command, options] = this->command("list", "List the jobs of a folder", help::list, list);
    argument(*command, "FOLDER", options->folder, kFolder)->required();
    declareFilter(*command, options->filter);
    argument(*command, "--sort", options->sort, "Order after the errors: kind, id, state, age, to")
        ->type_name("ORDER");
    command->add_flag("--unsorted", options->unsorted, "Print each job as it is read, in bounded memory");
    command->add_flag("--json", options->json, "As JSON");
  }

  void declareWatch() {
    const auto [command, options] = this->command("watch", "Follow the jobs of a folder", help::watch, watch);
    argument(*command, "FOLDER", options->folder, kFolder)->required();
    declareFilter(*command, options->filter);
    argument(*command, "--count", options->count, "End after so many changes")->type_name("N");
    argument(*command, "--seconds", options->seconds, "End after that time")->type_name("N");
    command->add_flag("--poll", options->poll, "Look twice a second: for folders on a share");
  }

  void declareExport() {
    const auto [command, options] =
        this->command("export", "Write the jobs of a folder as data", help::exportJobs, exportJobs);
    argument(*command, "FOLDER", options->folder, kFolder)->required();
    argument(*command, "--format", options->format, "csv (the default) or jsonl")->type_name("FORMAT");
  }

  void declareReport() {
    const auto [command, options] =
        this->command("report", "Make a page of the jobs of a folder", help::report, report);
    argument(*command, "FOLDER", options->folder, kFolder)->required();
    argument(*command, "-o,--output", options->output, "The page, or - for standard output [report.html]")
        ->type_name("FILE");
    argument(*command, "--details", options->details, "So many jobs at most with their XML [1000]")
        ->type_name("N");
  }

  void declareDiff() {
    const auto [command, options] =
        this->command("diff", "Compare two jobs, member by member", help::diff, diff);
    argument(*command, "A", options->a, kJobFile)->required();
    argument(*command, "B", options->b, "Job file to compare it with")->required();
  }

  void declareCheck() {
    const auto [command, options] =
        this->command("check", "Look for what is wrong with jobs", help::check, check);
    argument(*command, "PATH", options->paths, "Job file or documents folder ...")->required();
  }

  CLI::App& app_;
  const Console& console_;
  ExitCode result_ = ExitCode::Ok;
};

void refuseUnknownCommand(const CLI::App& app, const std::string& name) {
  Strings known;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    if (command->get_name() == name) return;
    known.push_back(command->get_name());
  }
  throw UsageError("there is no command " + name + suggestion(name, known));
}

ExitCode complain(const Console& console, const std::string& what, ExitCode code) {
  console.err << "orvane: " << what << '\n';
  return code;
}

// Help and version are "errors" of the parser too.
ExitCode reportParsing(const CLI::App& app, const CLI::ParseError& error, const Console& console) {
  if (error.get_exit_code() == 0) {
    app.exit(error, console.out, console.err);
    return ExitCode::Ok;
  }
  return complain(console, std::string(error.what()) + " (see --help)", ExitCode::Usage);
}

void parse(CLI::App& app, const Strings& arguments) {
  if (arguments[0].compare(0, 1, "-") != 0) refuseUnknownCommand(app, arguments[0]);
  app.parse(Strings(arguments.rbegin(), arguments.rend()));
}

ExitCode runParsed(CLI::App& app, const Declaration& declared, const Strings& arguments,
                   const Console& console) {
  try {
    parse(app, arguments);
    return declared.result();
  } catch (const CLI::ParseError& error) {
    return reportParsing(app, error, console);
  } catch (const Failure& failure) {
    return complain(console, failure.what(), ExitCode::RunTimeError);
  } catch (const Error& error) {
    return complain(console, std::string(error.what()) + " (" + std::to_string(error.number()) + ')',
                    ExitCode::RunTimeError);
  } catch (const UsageError& error) {
    return complain(console, error.what(), ExitCode::Usage);
  } catch (const std::exception& error) {
    return complain(console, std::string("internal error: ") + error.what(), ExitCode::Internal);
  }
}

}  // namespace

Console standardConsole() {
  return {std::cout, std::cerr, terminalWidth(Stream::Output), terminalWidth(Stream::Error)};
}

ExitCode run(const Strings& arguments, const Console& console) {
  CLI::App app("Compose, change and look at document jobs.", "orvane");
  app.set_version_flag("--version", "orvane " ORVANE_VERSION);
  app.footer(help::program);
  app.require_subcommand(1);
  Declaration declaration(app, console);
  declaration.declareAll();
  if (arguments.empty()) {
    console.err << app.help();
    return ExitCode::Usage;
  }
  const ExitCode code = runParsed(app, declaration, arguments, console);
  console.out.flush();
  return console.out ? code : complain(console, "the output could not be written", ExitCode::Output);
}

}  // namespace orvane::cli
