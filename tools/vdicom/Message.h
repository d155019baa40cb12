/// @file Message.h
/// Messages on standard error. Whatever comes from files or arguments is made safe for a terminal first.
#pragma once

#include "VDicomDS.h"

#include <string>
#include <string_view>

namespace program {

class Output;
class Progress;

/// What messages begin with: "vdicom dump".
void SetMessagePrefix(const char* prefix);
/// Sets the progress line that has to go away before a message; null: none. @return the one before
Progress* SetMessageProgress(Progress* progress);

/// "vdicom dump: SENTENCE"
void Say(std::string_view sentence);
/// "vdicom dump: NAME: SENTENCE", the name of a file for instance.
void Say(std::string_view name, std::string_view sentence);
/// A line without the prefix.
void SayPlain(std::string_view sentence);

/// What the platform says of an error number: "No such file or directory".
std::string SystemText(int error);
/// "at offset 0x1A4, (0010,0010): SENTENCE"
std::string FaultText(const DICOMFAULT& fault);
/// Says that standard output could not be written. @return the exit status
int ReportOutputFailure(const Output& out);

} // namespace program
