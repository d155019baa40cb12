/// @file HostLookup.h
/// The addresses of a peer. Names are looked up by a thread of their own, so that a slow name server keeps only those
/// waiting who want that peer.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace program {

class HostLookup {
public:
    /// Begins; what is an address already needs no thread. One thread begins all lookups. @throw std::system_error
    explicit HostLookup(const std::string& host);
    /// A lookup that is not done goes on for nobody.
    ~HostLookup();
    HostLookup(const HostLookup&) = delete;
    HostLookup& operator=(const HostLookup&) = delete;

    /// The loop of the thread that began it is woken when it is.
    bool IsDone() const;
    /// When it is done: 0, or why there are no addresses.
    unsigned int Code() const;
    std::vector<std::string> Addresses() const;

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared;
};

} // namespace program
