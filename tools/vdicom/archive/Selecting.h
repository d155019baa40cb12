/// @file Selecting.h
/// The SQL behind a query. It narrows the rows down as far as the indexes of the tables help; what it lets through may
/// be too much, never too little, and is matched by Key afterwards.
#pragma once

#include "Identifier.h"

#include <string>
#include <string_view>
#include <vector>

namespace archive {

class Statement;

/// A SELECT and the texts of its parameters, which must live while it runs.
struct SelectText {
    std::string sql;
    std::vector<std::string> parameters;

    void BindTo(Statement& statement) const;
};

/// Rows of the query's level with the values of its keys, in their order.
SelectText SelectForFind(const Query& query);

/// Rows of instances below what the query names. @param columns what to select, of the tables instance and series
SelectText SelectForRetrieval(const Query& query, std::string_view columns);

} // namespace archive
