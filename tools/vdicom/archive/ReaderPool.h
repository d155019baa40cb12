/// @file ReaderPool.h
/// Connections for reading the index. Each C-FIND has one of its own, so that it sees the index as it was when its
/// first row was read, and the next one sees what was stored meanwhile.
#pragma once

#include "Database.h"

#include <memory>
#include <string>
#include <vector>

namespace archive {

class ReaderPool {
public:
    explicit ReaderPool(std::string path) : m_path(std::move(path)) {}

    std::unique_ptr<Database> Take();
    /// No statement of it may be left.
    void Give(std::unique_ptr<Database> reader);

private:
    static constexpr std::size_t kKept = 16;

    std::string m_path;
    std::vector<std::unique_ptr<Database>> m_idle;
};

/// A connection on loan, and a statement on it.
class Selection {
public:
    Selection(ReaderPool& pool, std::string_view sql);
    ~Selection();
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

    Statement& Rows() const { return *m_statement; }
    Database& Reader() const { return *m_reader; }

private:
    ReaderPool& m_pool;
    std::unique_ptr<Database> m_reader;
    std::unique_ptr<Statement> m_statement;
};

} // namespace archive
