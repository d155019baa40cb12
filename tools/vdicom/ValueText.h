/// @file ValueText.h
/// Values as people like to read them.
#pragma once

#include "TextReader.h"
#include "VisibleText.h"

namespace program {

/// Writes values of a data set: texts in UTF-8, UIDs and tags with their names, numbers in decimal, bytes in
/// hexadecimal digits; only as much of a value is read as is shown.
class ValueText {
public:
    ValueText(VDicomDS& ds, Output& out) : m_out(out), m_texts(ds) {}

    TextReader& Texts() { return m_texts; }

    /// @param columns kNoLimit: the whole value
    void Write(DICOMELEMENT* e, std::size_t columns);

private:
    void WriteText(DICOMELEMENT* e, std::size_t columns);
    void WriteNumbers(DICOMELEMENT* e, std::size_t columns);
    void WriteBytes(DICOMELEMENT* e, std::size_t columns);

    Output& m_out;
    TextReader m_texts;
};

/// The name of a UID from the table or today's edition; empty when it is in neither. Padding plays no part.
std::string_view NameOfUid(std::string_view uid);

} // namespace program
