// A program outside this project that uses the installed library.
#include <orvane.h>
#include <orvane_version.h>

#include <iostream>

int main() { std::cout << "built with orvane " << ORVANE_VERSION << "\n"; }
