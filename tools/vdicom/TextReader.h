/// @file TextReader.h
/// Texts of elements in UTF-8, from reused buffers and without conversion where the bytes are plain ASCII anyway.
#pragma once

#include "VDicomDS.h"

#include <string>
#include <string_view>
#include <vector>

namespace program {

class TextReader {
public:
    explicit TextReader(VDicomDS& ds) : m_ds(ds) {}

    /// To be called for each data set after loading, before its first text.
    void StartDataSet();
    /// To be called with each (0008,0005) that stands in an item.
    void NoteCharacterSet(DICOMELEMENT* e);

    struct Result {
        std::string_view text; ///< without padding at the end; valid until the next call
        bool more = false;     ///< the text goes on behind what is here
        bool read = true;      ///< false: the value could not be read
    };
    /// The text of an element of a string VR. @param atMost bytes wanted of it
    Result Text(DICOMELEMENT* e, std::size_t atMost);

    struct Bytes {
        const unsigned char* data = nullptr;
        std::size_t size = 0;
        bool read = true;
    };
    /// Bytes of the value from `offset` on, in the host's order, at most `atMost` of them.
    Bytes Raw(DICOMELEMENT* e, VDicomULong offset, std::size_t atMost);

private:
    VDicomDS& m_ds;
    bool m_asciiIsAscii = true; ///< false: a character set in use gives the bytes 0x20 to 0x7E another meaning
    std::vector<char> m_raw;
    std::string m_converted;
};

} // namespace program
