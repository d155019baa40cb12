#include "Database.h"

namespace archive {

namespace {

constexpr int kWaitForOthers = 1000; // milliseconds; nobody but this process should use it

} // namespace

Database::Database(const std::string& path, Mode mode) {
    int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    flags |= mode == Mode::read ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if (mode == Mode::create)
        flags |= SQLITE_OPEN_CREATE;
    const int code = sqlite3_open_v2(path.c_str(), &m_handle, flags, nullptr);
    if (code != SQLITE_OK) {
        const DatabaseError error(code, path + ": " + (m_handle ? sqlite3_errmsg(m_handle) : "no memory"));
        sqlite3_close(m_handle);
        throw error;
    }
    sqlite3_busy_timeout(m_handle, kWaitForOthers);
}

void Database::Fail(int code) const { throw DatabaseError(code, sqlite3_errmsg(m_handle)); }

void Database::Execute(const char* sql) {
    const int code = sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        Fail(code);
}

std::int64_t Database::Number(const char* sql) {
    Statement statement(*this, sql);
    return statement.Step() ? statement.Number(0) : 0;
}

Statement::Statement(Database& database, std::string_view sql) : m_database(database) {
    const int code = sqlite3_prepare_v3(database.Handle(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &m_handle, nullptr);
    if (code != SQLITE_OK)
        database.Fail(code);
}

Statement& Statement::Bind(int parameter, std::string_view text) {
    const char* bytes = text.data() == nullptr ? "" : text.data();
    const int code = sqlite3_bind_text64(m_handle, parameter, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8);
    if (code != SQLITE_OK)
        m_database.Fail(code);
    return *this;
}

Statement& Statement::Bind(int parameter, std::int64_t number) {
    const int code = sqlite3_bind_int64(m_handle, parameter, number);
    if (code != SQLITE_OK)
        m_database.Fail(code);
    return *this;
}

bool Statement::Step() {
    const int code = sqlite3_step(m_handle);
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    const DatabaseError error(code, sqlite3_errmsg(m_database.Handle()));
    sqlite3_reset(m_handle);
    throw error;
}

void Statement::Run() {
    while (Step()) {
    }
    Reset();
}

std::string_view Statement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_handle, column));
    return text == nullptr ? std::string_view{}
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(m_handle, column)));
}

} // namespace archive
