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
    Selection groups(pool, syntaxes.sql);
    syntaxes.BindTo(groups.Rows());
    while (groups.Rows().Step()) {
        m_syntaxes.push_back({std::string(groups.Rows().Text(0)), std::string(groups.Rows().Text(1))});
        m_total += static_cast<std::uint64_t>(groups.Rows().Number(2));
    }
    m_select.BindTo(m_selection.Rows());
}

bool Retrieval::Next(RetrievedObject& object) {
    Statement& rows = m_selection.Rows();
    if (m_done || !rows.Step()) {
        m_done = true; // another step would begin anew
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
