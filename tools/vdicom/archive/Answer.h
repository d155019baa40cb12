/// @file Answer.h
/// Fills the data sets that answer queries: texts in the character set of the request where it can express them, else
/// in UTF-8 (ISO_IR 192); without (0008,0005) where all of them are ASCII.
#pragma once

#include "VDicomDS.h"

#include <string>
#include <string_view>
#include <vector>

namespace archive {

/// Whether a text needs no character set.
bool IsAscii(std::string_view text);

class Answer {
public:
    /// Empties `ds`. Elements are added to the top level, and to items that the caller makes.
    Answer(VDicomDS& ds, const std::string& characterSet);

    /// Remembers an element. The text must live until Write.
    /// @param item null: the top level
    void Add(DICOMELEMENT* item, VDicomULong tag, unsigned short vr, std::string_view text);
    /// Sets all of them. @return false when memory ran out
    bool Write();

private:
    struct Entry {
        DICOMELEMENT* item;
        VDicomULong tag;
        unsigned short vr;
        std::string_view text;
    };

    bool WriteAll();
    bool Set(const Entry& entry);

    VDicomDS& m_ds;
    const std::string& m_characterSet;
    std::vector<Entry> m_entries;
    std::string m_text;
    bool m_ascii = true;
};

} // namespace archive
