/// @file WorklistItem.h
/// Items of worklist files: matched against keys, and answered.
#pragma once

#include "Answer.h"
#include "Worklist.h"

#include <deque>

namespace archive {

constexpr VDicomULong kScheduledStep = 0x00400100;

/// Whether an item (null: the top level) has what all keys say. The sequence of scheduled steps plays no part in it.
/// Ranges of the steps' start date and start time are one span together (PS3.4 Table K.6-1).
bool MatchesItem(VDicomDS& ds, DICOMELEMENT* item, const std::vector<WorklistKey>& keys);

/// Copies what keys ask for from an item of a worklist file.
class ItemCopy {
public:
    /// @param step the one item of scheduled steps to copy
    ItemCopy(VDicomDS& source, VDicomDS& target, Answer& answer, DICOMELEMENT* step)
        : m_source(source), m_target(target), m_answer(answer), m_step(step) {}

    /// @return false when memory ran out
    bool Asked(DICOMELEMENT* from, DICOMELEMENT* to, const std::vector<WorklistKey>& keys);

private:
    bool All(DICOMELEMENT* from, DICOMELEMENT* to);
    bool Sequence(DICOMELEMENT* from, DICOMELEMENT* to, const WorklistKey& key);
    bool Item(DICOMELEMENT* from, DICOMELEMENT* sequence, const std::vector<WorklistKey>& keys);
    bool Value(DICOMELEMENT* from, DICOMELEMENT* to, VDicomULong tag, unsigned short vr);

    VDicomDS& m_source;
    VDicomDS& m_target;
    Answer& m_answer;
    DICOMELEMENT* m_step;
    std::deque<std::string> m_texts; ///< what the answer refers to
    std::vector<char> m_scratch;
};

} // namespace archive
