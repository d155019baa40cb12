/// @file PeersFile.h
/// The application entities that a server knows: lines of "AE HOST PORT", blanks between them; what follows a '#' is a
/// remark.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace program {

struct KnownPeer {
    std::string title;
    std::string host;
    unsigned int port = 0;
};

class PeersFile {
public:
    /// Reads the text of such a file; what was known is forgotten when it has no fault.
    /// @return empty, or what is wrong, with the line
    std::string Parse(std::string_view text);
    /// Reads a file. @return as Parse
    std::string Load(const std::string& path);

    const KnownPeer* Find(std::string_view title) const;
    std::size_t Count() const { return m_peers.size(); }

private:
    std::vector<KnownPeer> m_peers;
};

} // namespace program
