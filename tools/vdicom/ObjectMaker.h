/// @file ObjectMaker.h
/// Objects of a class with their mandatory content, by the table of information object definitions.
#pragma once

#include "ElementEditor.h"

#include "VDicomIOD.h"

#include <map>
#include <string>
#include <vector>

namespace program {

/// An element of type 1 (PS3.5 7.4.1) that has no value.
struct MissingValue {
    std::string path; ///< as --set takes it
    VDicomULong tag;
    std::string name;
};

/// Makes an object in a data set that it resets. Its modules are the mandatory ones of the class and those that a
/// change sets an element of; it has their elements of types 1 and 2, in the items of sequences too, and what the
/// changes set. Elements of type 1 get values where these are facts: new UIDs, the only value that is allowed, the
/// class itself.
class ObjectMaker {
public:
    /// @param withOptional the date and time of the making, optional keys of a query level
    ObjectMaker(VDicomDS& ds, DICOMIOD* definition, bool withOptional);

    /// @return what went wrong; empty: it is made
    std::string Make(const std::vector<Change>& changes);
    /// The elements of type 1 that are empty, in the order of the data set.
    std::vector<MissingValue> Missing();
    /// Whether the class is a level of the query/retrieve models: its object is an identifier, and no SOP instance.
    bool IsQueryLevel() const;

private:
    /// Where an element stands: tags and item numbers on the way.
    using Place = std::vector<VDicomULong>;
    using MissingValues = std::map<Place, MissingValue>;

    void ChooseModules(const std::vector<Change>& changes);
    bool IsMandatory(const DICOMIOD* entry) const;
    bool Complete(DICOMIOD* entry, DICOMELEMENT* parent);
    DICOMELEMENT* Insert(const DICOMIOD* entry, DICOMELEMENT* parent, bool isSequence, bool withItem);
    std::string FillBelow(DICOMIOD* entry, DICOMELEMENT* parent);
    std::string FactFor(const DICOMIOD* entry, bool isTopLevel);
    std::string NewUid(VDicomULong tag);
    std::string SetText(VDicomULong tag, const std::string& text);
    std::string SetMakingTime();
    void FindMissing(DICOMIOD* entry, DICOMELEMENT* parent, const std::string& path, const Place& place,
                     MissingValues& missing);

    VDicomDS& m_ds;
    DICOMIOD* m_definition;
    bool m_withOptional;
    std::vector<DICOMIOD*> m_entries; ///< the modules of the object, or its class where that holds elements itself
    std::map<VDicomULong, std::string> m_uids;
};

} // namespace program
