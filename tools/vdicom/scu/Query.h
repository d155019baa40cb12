/// @file Query.h
/// What find, get and move ask for: information model, level and keys (PS3.4 C, K).
#pragma once

#include "Options.h"
#include "TagPath.h"
#include "scu/PeerTexts.h"

#include "VDicomDS.h"

#include <string>
#include <vector>

namespace program {

/// Unique keys of the levels (PS3.4 C.6).
constexpr VDicomULong kPatientId = 0x00100020, kStudyUid = 0x0020000D, kSeriesUid = 0x0020000E,
                      kInstanceUid = 0x00080018;

enum class QueryLevel { patient, study, series, image, worklist };

/// A key of an identifier: return this attribute, and where there is a value, match it.
struct QueryKey {
    TagPath path;
    std::string value; ///< UTF-8; wildcards, ranges and lists as the standard has them
};

struct Query {
    QueryLevel level = QueryLevel::study;
    bool patientRoot = false;
    std::vector<QueryKey> keys;
    bool defaultKeys = false; ///< ask for the usual attributes of the level, too

    /// The SOP class of a service over the model.
    const char* ClassFor(Service service) const;
    /// The value of an attribute that is a key by itself; empty: there is none.
    std::string ValueOf(VDicomULong tag) const;
    /// Adds a key. @param keyword of an attribute
    void Add(const char* keyword, const std::string& value = {});
    /// Fills an empty data set. @return what is wrong; empty: it is filled
    std::string Build(VDicomDS& identifier) const;
};

/// The options -k, --level and --model of a command.
class QueryOptions {
public:
    QueryOptions(Options& options, Service service);
    /// Reads what was given. @return what is wrong with it; empty: nothing
    std::string Read(const Options& options, Query& query) const;

private:
    std::string ReadLevel(bool isGiven, Query& query) const;

    Service m_service;
    std::vector<std::string> m_keys;
    std::string m_level = "study";
    std::string m_model;
    bool m_onlyKeys = false;
};

/// The UIDs of an element of a response.
std::vector<std::string> ReadUids(VDicomDS& ds, VDicomULong tag);

/// Reads KEY[=VALUE]; a sequence without an item number means its first item.
/// @return what is wrong with it; empty: nothing
std::string ParseQueryKey(const std::string& text, QueryKey& key);

} // namespace program
