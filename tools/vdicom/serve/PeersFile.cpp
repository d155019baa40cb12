#include "serve/PeersFile.h"

#include "Message.h"
#include "scu/Peer.h"

#include "VDicomFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <sstream>

namespace program {

namespace {

constexpr VDicomUInt64 kLargest = VDicomUInt64{16} << 20;

/// @return what is wrong with a line; empty: nothing. `peer` has no title when the line says nothing.
std::string ParseLine(const std::string& line, KnownPeer& peer) {
    std::istringstream words(line.substr(0, line.find('#')));
    std::string port;
    std::string more;
    if (!(words >> peer.title))
        return {};
    if (!(words >> peer.host >> port) || words >> more)
        return "a line is 'AE HOST PORT'";
    if (!ParsePort(port, peer.port))
        return fmt::format("'{}' is no port", port);
    return WrongTitle(peer.title);
}

} // namespace

std::string PeersFile::Parse(std::string_view text) {
    std::vector<KnownPeer> peers;
    std::istringstream lines{std::string(text)};
    std::string line;
    for (std::size_t number = 1; std::getline(lines, line); ++number) {
        KnownPeer peer;
        std::string wrong = ParseLine(line, peer);
        const auto same = [&](const KnownPeer& other) { return other.title == peer.title; };
        if (wrong.empty() && std::any_of(peers.begin(), peers.end(), same))
            wrong = fmt::format("{} stands there twice", peer.title);
        if (!wrong.empty())
            return fmt::format("line {}: {}", number, wrong);
        if (!peer.title.empty())
            peers.push_back(std::move(peer));
    }
    m_peers = std::move(peers);
    return {};
}

std::string PeersFile::Load(const std::string& path) {
    VDicomFile file;
    if (file.Open(path.c_str(), DICOM_FILE_MODE_LOAD) == 0)
        return SystemText(file.GetError());
    const VDicomUInt64 size = file.GetSize64();
    if (size > kLargest)
        return "this is too large for a list of peers";
    std::string text(static_cast<std::size_t>(size), '\0');
    if (size != 0 && file.Read(text.data(), static_cast<VDicomULong>(size)) == 0)
        return "cannot be read";
    return Parse(text);
}

const KnownPeer* PeersFile::Find(std::string_view title) const {
    const auto found =
        std::find_if(m_peers.begin(), m_peers.end(), [&](const KnownPeer& peer) { return peer.title == title; });
    return found == m_peers.end() ? nullptr : &*found;
}

} // namespace program
