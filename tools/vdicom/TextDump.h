/// @file TextDump.h
/// A data set for people: one line per element with tag, VR, length, name and value.
#pragma once

#include "Selection.h"
#include "ValueText.h"

#include <deque>

namespace program {

struct TextDumpOptions {
    bool offsets = false;
    bool colour = false;
    bool full = false;            ///< whole values
    std::size_t columns = 0;      ///< of the terminal; 0: there is none
    std::size_t depth = kNoLimit; ///< how many levels of sequences are opened
};

class TextDump {
public:
    TextDump(VDicomDS& ds, Output& out, const TextDumpOptions& options)
        : m_ds(ds), m_out(out), m_options(options), m_values(ds, out) {}

    /// Writes the data set. @param paths what to show; empty: all
    void Write(const std::vector<TagPath>& paths);

    /// Writes one value as it stands in a line. @param columns kNoLimit: whole
    void WriteValue(DICOMELEMENT* e, std::size_t columns);
    void StartDataSet() { m_values.Texts().StartDataSet(); }

private:
    void WriteLevel(DICOMELEMENT* parent, std::size_t depth, const Selection::Level* level);
    void WriteItems(DICOMELEMENT* e, std::size_t depth, const Selection::Level* inside);
    void WriteElement(DICOMELEMENT* e, std::size_t depth);
    void WriteFragment(DICOMELEMENT* item, VDicomULong number, std::size_t depth);
    std::size_t WriteOffset(DICOMELEMENT* e);
    void WriteSummary(DICOMELEMENT* e);
    std::string_view NameOf(DICOMELEMENT* e);
    std::size_t ValueColumns(std::size_t used) const;
    void Colour(const char* code) {
        if (m_options.colour)
            m_out.Put(code);
    }

    VDicomDS& m_ds;
    Output& m_out;
    TextDumpOptions m_options;
    ValueText m_values;
    std::deque<Selection::Level> m_levels; ///< two for each depth, reused from one element to the next
};

} // namespace program
