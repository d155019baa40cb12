#include "ReaderPool.h"

namespace archive {

std::unique_ptr<Database> ReaderPool::Take() {
    if (m_idle.empty())
        return std::make_unique<Database>(m_path, Database::Mode::read);
    std::unique_ptr<Database> reader = std::move(m_idle.back());
    m_idle.pop_back();
    return reader;
}

void ReaderPool::Give(std::unique_ptr<Database> reader) {
    if (!reader || m_idle.size() >= kKept)
        return;
    m_idle.push_back(std::move(reader));
}

Selection::Selection(ReaderPool& pool, std::string_view sql)
    : m_pool(pool), m_reader(pool.Take()), m_statement(std::make_unique<Statement>(*m_reader, sql)) {}

Selection::~Selection() {
    m_statement.reset();
    m_pool.Give(std::move(m_reader));
}

} // namespace archive
