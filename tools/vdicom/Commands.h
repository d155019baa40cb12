/// @file Commands.h
/// The subcommands. Each takes its arguments, its own name first, and gives the exit status.
#pragma once

namespace program {

int RunDump(int count, const char* const* arguments);
int RunConvert(int count, const char* const* arguments);
int RunEdit(int count, const char* const* arguments);
int RunNew(int count, const char* const* arguments);
int RunCheck(int count, const char* const* arguments);
int RunDict(int count, const char* const* arguments);
int RunEcho(int count, const char* const* arguments);
int RunStore(int count, const char* const* arguments);
int RunFind(int count, const char* const* arguments);
int RunGet(int count, const char* const* arguments);
int RunMove(int count, const char* const* arguments);
/// In builds without the archive it says so.
int RunServe(int count, const char* const* arguments);

} // namespace program
