#include "Retrieval.h"

#include "IndexWriter.h"

#include <algorithm>

namespace archive {

Retrieval::Retrieval(const Query& query, ReaderPool& pool, std::string folder)
    : m_folder(std::move(folder)),
      m_row(pool, "SELECT series.folder, instance.file, instance.SOPInstanceUID, instance.SOPClassUID, "
                  "instance.AvailableTransferSyntaxUID FROM instance "
                  "JOIN series ON series.id = instance.series WHERE instance.id = ?1") {
    const SelectText select =
        SelectForRetrieval(query, "instance.id, instance.SOPClassUID, instance.AvailableTransferSyntaxUID");
    Statement rows(m_row.Reader(), select.sql);
    select.BindTo(rows);
    while (rows.Step()) {
        m_ids.push_back(rows.Number(0));
        const auto isThis = [&rows](const RetrievedSyntax& known) {
            return known.classUid == rows.Text(1) && known.transferSyntax == rows.Text(2);
        };
        if (std::none_of(m_syntaxes.begin(), m_syntaxes.end(), isThis))
            m_syntaxes.push_back({std::string(rows.Text(1)), std::string(rows.Text(2))});
    }
}

bool Retrieval::Next(RetrievedObject& object) {
    if (m_next == m_ids.size())
        return false;
    ++m_next;
    Find(object);
    return true;
}

bool Retrieval::Find(RetrievedObject& object) {
    object = {};
    Statement& row = m_row.Rows();
    const bool isThere = row.BindAll(m_ids[m_next - 1]).Step();
    if (isThere) {
        object.instanceUid = row.Text(2);
        const std::string_view file = row.Text(1);
        object.path = m_folder + '/';
        object.path += file.empty() ? UsualFile(std::string(row.Text(0)), object.instanceUid) : std::string(file);
        object.classUid = row.Text(3);
        object.transferSyntax = row.Text(4);
    }
    row.Reset();
    return isThere;
}

} // namespace archive
