/// @file Schema.h
/// The tables of the index. Their columns are the rows of kAttributes.
#pragma once

#include "Database.h"

namespace archive {

/// Raised with every change of tables, columns, or what stands in them: an index of another version is refused.
constexpr int kSchemaVersion = 2;

/// Makes the tables in an empty database.
void CreateSchema(Database& database);

/// An index is made as a file beside its place, which it takes when it is whole and closed. @throw
/// std::filesystem::filesystem_error
void PutInPlace(const std::string& made, const std::string& place);
/// Deletes an index with the files that belong to it.
void RemoveIndex(const std::string& path);

/// @return empty, or why the database cannot be used as it is, and what to do
std::string CheckSchema(Database& database);

} // namespace archive
