#include "scu/Peer.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace program {

namespace {

constexpr std::uint64_t kLeastPdu = 1024, kMostPdu = std::uint64_t{128} << 20;
constexpr std::uint64_t kLongestTimeout = 1'000'000;

/// An IPv6 address may stand in brackets, before which Options has put "./" as for a file name.
std::string WithoutBrackets(std::string host) {
    if (host.starts_with("./["))
        host.erase(0, 2);
    return host.size() > 2 && host.front() == '[' && host.back() == ']' ? host.substr(1, host.size() - 2) : host;
}

} // namespace

std::string Peer::Name() const {
    const bool isAddress6 = host.find(':') != std::string::npos;
    return isAddress6 ? fmt::format("{} at [{}]:{}", called, host, port)
                      : fmt::format("{} at {}:{}", called, host, port);
}

PeerOptions::PeerOptions(Options& options) : m_maxPdu(Peer().maxPdu), m_timeout(Peer().timeout / 1000) {
    m_called = Peer().called;
    m_calling = Peer().calling;
    options.Argument("HOST", m_host, "name or address of the peer");
    options.Argument("PORT", m_port, "its TCP port");
    options.Text("--called", m_called, "AE", "AE title of the peer; ANY-SCP unless given");
    options.Text("--calling", m_calling, "AE", "own AE title; VDICOM unless given");
    options.Number("--max-pdu", m_maxPdu, "BYTES", "the largest PDU that the peer may send; 131072 unless given");
    options.Number("--timeout", m_timeout, "SECONDS",
                   "how long to wait for the peer at a time; 60 unless given, 0: for ever");
}

std::string PeerOptions::Read(Peer& peer) const {
    peer.host = WithoutBrackets(m_host);
    if (peer.host.empty())
        return "HOST: a name or an address is needed";
    if (!ParsePort(m_port, peer.port))
        return fmt::format("PORT: '{}' is no port; 1 to 65535 are", m_port);
    if (const std::string wrong = WrongTitle(m_called); !wrong.empty())
        return "--called: " + wrong;
    if (const std::string wrong = WrongTitle(m_calling); !wrong.empty())
        return "--calling: " + wrong;
    if (m_maxPdu < kLeastPdu || m_maxPdu > kMostPdu || m_maxPdu % 2 != 0)
        return fmt::format("--max-pdu: an even number from {} to {} is needed", kLeastPdu, kMostPdu);
    if (m_timeout > kLongestTimeout)
        return fmt::format("--timeout: {} seconds at most; 0 waits for ever", kLongestTimeout);
    peer.called = m_called;
    peer.calling = m_calling;
    peer.maxPdu = static_cast<VDicomULong>(m_maxPdu);
    peer.timeout = static_cast<VDicomULong>(m_timeout * 1000);
    return {};
}

bool ParsePort(const std::string& text, unsigned int& port) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
    return error == std::errc() && end == text.data() + text.size() && port >= 1 && port <= 65535;
}

std::string WrongTitle(const std::string& title) {
    const auto isAllowed = [](char c) { return c >= ' ' && c < 0x7F && c != '\\'; };
    if (!std::all_of(title.begin(), title.end(), isAllowed))
        return fmt::format("'{}' is no AE title: letters, digits, blanks and signs of ASCII but for backslashes",
                           title);
    if (title.empty() || title.size() > 16 || title.find_first_not_of(' ') == std::string::npos)
        return fmt::format("'{}' is no AE title: 1 to 16 characters are, not all of them blanks", title);
    return {};
}

} // namespace program
