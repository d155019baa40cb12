/// @file Identifier.h
/// What the identifier of a C-FIND, C-MOVE or C-GET request asks for (PS3.4 C.4.1, C.4.2, C.4.3), hierarchical: the
/// unique key of every level above the one asked for must be there with one value.
///
/// Keys of the levels above that the index has match and are answered as well, which the standard leaves open. Keys
/// that the index does not have, sequences and private elements, and keys of a level below play no part in the matching
/// and are not answered; the responses then have status FF01 instead of FF00.
#pragma once

#include "Attributes.h"
#include "Matching.h"
#include "Outcome.h"

#include "VDicomDS.h"

#include <string>
#include <vector>

namespace archive {

/// The information models. Patient/study only is retired, and still asked for.
enum class Root : unsigned char { patient, study, patientStudy };

struct QueryOptions {
    Root root = Root::study;
    /// Ranges of a date and of its time mean one span from date and time to date and time (negotiated, PS3.4
    /// C.5.1.1); else each matches by itself.
    bool combinedDateTime = false;
};

struct QueryKey {
    const Attribute* attribute;
    Key key;
};

struct Query {
    Level level = Level::study;
    Root root = Root::study;
    bool combinedDateTime = false;
    bool wantsAvailability = false;
    bool hasUnsupportedKeys = false;
    bool hasUnsupportedValues = false; ///< one of them has a value
    std::string characterSet;          ///< (0008,0005) of the request; may be empty
    std::vector<QueryKey> keys;        ///< ascending by tag; the unique keys down to the level are among them

    const QueryKey* Find(VDicomULong tag) const;
};

/// A find request. @return a failure: A900 the level or a unique key is wrong, C000 a value cannot be understood
Outcome ReadQuery(VDicomDS& identifier, const QueryOptions& options, Query& query);

/// A move or get request. Only unique keys may have values, else more would come than was asked for; that of the level
/// asked for may be a list.
Outcome ReadRetrieval(VDicomDS& identifier, const QueryOptions& options, Query& query);

} // namespace archive
