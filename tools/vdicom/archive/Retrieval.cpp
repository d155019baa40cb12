#include "Retrieval.h"

#include "IndexWriter.h"

namespace archive {

Retrieval::Retrieval(const Query& query, ReaderPool& pool, std::string folder)
    : m_folder(std::move(folder)),
      m_select(SelectForRetrieval(query, "series.folder, instance.file, instance.SOPInstanceUID, instance.SOPClassUID, "
                                         "instance.AvailableTransferSyntaxUID, instance.size")),
      m_selection(pool, m_select.sql) {
    SelectText syntaxes =
        SelectForRetrieval(query, "instance.SOPClassUID, instance.AvailableTransferSyntaxUID, count(*)");
    syntaxes.sql += " GROUP BY 1, 2";
    // One transaction for both, so that they see the same objects.
    m_selection.Reader().Execute("BEGIN");
    Statement groups(m_selection.Reader(), syntaxes.sql);
    syntaxes.BindTo(groups);
    while (groups.Step()) {
        m_syntaxes.push_back({std::string(groups.Text(0)), std::string(groups.Text(1))});
        m_total += static_cast<std::uint64_t>(groups.Number(2));
    }
    m_select.BindTo(m_selection.Rows());
}

bool Retrieval::Next(RetrievedObject& object) {
    if (m_done)
        return false;
    Statement& rows = m_selection.Rows();
    if (!rows.Step()) {
        m_done = true;
        m_selection.End();
        return false;
    }
    object.instanceUid = rows.Text(2);
    const std::string_view file = rows.Text(1);
    object.path = m_folder + '/';
    object.path += file.empty() ? UsualFile(std::string(rows.Text(0)), object.instanceUid) : std::string(file);
    object.classUid = rows.Text(3);
    object.transferSyntax = rows.Text(4);
    object.size = static_cast<std::uint64_t>(rows.Number(5));
    return true;
}

} // namespace archive
