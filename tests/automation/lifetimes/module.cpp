// The DLL of a client with static pointers to objects of the server.
#include "tests/automation/lifetimes/Job.h"

namespace {

Job job;

}  // namespace

extern "C" __declspec(dllexport) int composeHere(const wchar_t* folder) { return job.compose(folder); }
