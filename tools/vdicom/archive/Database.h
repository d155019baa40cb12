/// @file Database.h
/// SQLite as the index uses it: connections and prepared statements that close themselves and throw when they fail.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace archive {

/// What the database refused, in its words.
class DatabaseError : public std::runtime_error {
public:
    DatabaseError(int code, const std::string& text) : std::runtime_error(text), m_code(code) {}
    int Code() const { return m_code; } ///< SQLITE_...

private:
    int m_code;
};

class Database {
public:
    enum class Mode { create, write, read };

    /// @param path UTF-8 @throw DatabaseError
    Database(const std::string& path, Mode mode);
    ~Database() { sqlite3_close(m_handle); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs statements that give no rows.
    void Execute(const char* sql);
    /// The one number that a statement gives.
    std::int64_t Number(const char* sql);
    std::int64_t LastRow() const { return sqlite3_last_insert_rowid(m_handle); }
    sqlite3* Handle() const { return m_handle; }
    [[noreturn]] void Fail(int code) const;

private:
    sqlite3* m_handle = nullptr;
};

class Statement {
public:
    Statement(Database& database, std::string_view sql);
    ~Statement() { sqlite3_finalize(m_handle); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Parameters count from 1. The text must stay where it is until the statement is reset.
    Statement& Bind(int parameter, std::string_view text);
    Statement& Bind(int parameter, std::int64_t number);
    /// Parameters 1, 2 ... in turn.
    template <class... Values> Statement& BindAll(const Values&... values) {
        int parameter = 0;
        (Bind(++parameter, values), ...);
        return *this;
    }
    /// @return whether there is a row
    bool Step();
    /// Runs to the end, for statements that give no rows, and makes ready for the next use.
    void Run();
    void Reset() { sqlite3_reset(m_handle); }
    sqlite3_stmt* Handle() const { return m_handle; }

    /// Columns of the row count from 0. The text lives until the next Step or Reset.
    std::string_view Text(int column) const;
    std::int64_t Number(int column) const { return sqlite3_column_int64(m_handle, column); }

private:
    Database& m_database;
    sqlite3_stmt* m_handle = nullptr;
};

} // namespace archive
