/// @file Input.h
/// Input files: those that the command line names, and loading them with all that can go wrong said.
#pragma once

#include "VDicomDS.h"

#include <functional>
#include <string>
#include <vector>

namespace program {

enum class Loaded {
    whole,
    part, ///< the load failed; what was read is there
    none  ///< nothing was read
};

/// Loads one file after the other into one data set, and says what is wrong with each on standard error.
class Input {
public:
    VDicomDS& DataSet() { return m_ds; }

    /// What is wrong inside the files is left to the caller (VDicomDS::GetFault).
    void LeaveFaults() { m_saysFaults = false; }

    /// @param path a file, or "-" for standard input @param flags load flags
    Loaded Load(const std::string& path, unsigned short flags);

    /// Does what loading leaves to the caller before a data set is saved: values of odd length are made even.
    /// @return false when that failed; it has been said
    bool Repair(const std::string& path);

private:
    void SayFaults(const std::string& name, unsigned int result) const;

    VDicomFile m_stream; ///< before the data set that reads it
    VDicomDS m_ds;
    bool m_saysFaults = true;
};

/// What a file is called in messages: "standard input" for "-".
std::string NameOfInput(const std::string& path);

/// Whether a path is "-", standard input or output.
inline bool IsStandard(const std::string& path) { return path == "-"; }

/// Calls `each` with every file that the arguments name; folders are searched, in the order of their names, when
/// `recursive` is set. What is neither file nor folder is passed on as it stands.
/// @param each gets the path, and the part of it below the folder that was named (else only the file's name)
/// @return false when a folder could not be read; it has been said
bool ForEachInput(const std::vector<std::string>& arguments, bool recursive,
                  const std::function<bool(const std::string& path, const std::string& below)>& each);

class Output;

/// ForEachInput for reports on files: until the output fails, with a progress line where the report is not on a
/// terminal itself, where it would only disturb.
/// @return false when a folder could not be read or memory ran out; it has been said
bool ReportEach(const std::vector<std::string>& arguments, bool recursive, const Output& out,
                const std::function<void(const std::string& path)>& report);

bool IsFolder(const std::string& path);

} // namespace program
