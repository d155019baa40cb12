// Rows of the facts behind the built-in tables.
#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace facts {

using Row = std::vector<std::string>;

/// The rows of a tab-separated file without its header line; none where the folder is absent.
inline std::vector<Row> Read(const std::string& name) {
    std::ifstream file(std::string(VDICOM_SHARED) + "/data/" + name);
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        Row row(1);
        for (const char c : line) {
            if (c == '\t')
                row.emplace_back();
            else
                row.back() += c;
        }
        rows.push_back(row);
    }
    if (!rows.empty())
        rows.erase(rows.begin());
    return rows;
}

} // namespace facts
