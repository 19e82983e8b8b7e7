#include <iostream>

#include "cli/CommandLine.h"

int main(int count, char** arguments) {
  std::ios::sync_with_stdio(false);
  return static_cast<int>(
      orvane::cli::run({arguments + (count > 0 ? 1 : 0), arguments + count}, orvane::cli::standardConsole()));
}
