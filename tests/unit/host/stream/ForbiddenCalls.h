// What the stream's thread called and must not: memory, locks, files, sleeping.
#pragma once

#include <string>

namespace velorin::host::test {

/// The calls since the last `takeForbiddenCalls`, each once with the functions that led to it, as
/// lines of text; empty if there were none. To be called while no stream runs.
std::string takeForbiddenCalls();

/// Called by each function of the system that the test program replaces, before it is carried out.
/// Notes the call if the thread makes sound for the stream.
void noteCall(const char* function);

} // namespace velorin::host::test
