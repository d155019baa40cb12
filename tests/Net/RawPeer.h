/// @file RawPeer.h
/// A plain socket at the other end, which sends and gets bytes as a test says. It lives on the connection's thread.
#pragma once

#include "HexBytes.h"
#include "LoopbackPair.h"
#include "Socket.h"

namespace loopback {

class RawPeer {
public:
    /// Connects to a server.
    explicit RawPeer(unsigned int port) {
        using namespace vdicom::platform;
        std::vector<SocketAddress> addresses;
        int error = 0;
        EXPECT_EQ(ResolveAddress("127.0.0.1", port, false, addresses), 0);
        EXPECT_EQ(OpenSocket(addresses.front(), m_socket), 0);
        SetSocketOptions(m_socket, {}, error);
        EXPECT_EQ(ConnectSocket(m_socket, addresses.front()), 0);
    }
    ~RawPeer() { Close(); }
    RawPeer(const RawPeer&) = delete;
    RawPeer& operator=(const RawPeer&) = delete;

    void Close() {
        vdicom::platform::CloseSocket(m_socket);
        m_socket = vdicom::platform::kNoSocket;
    }
    /// What goes out at once, a connection that is being made waited for. @return false: the peer has closed
    bool Send(const unsigned char* data, std::size_t size) {
        for (int i = 0; size != 0 && i < 10000; ++i) {
            const vdicom::platform::SendPart part{data, size};
            std::size_t done = 0;
            const int error = vdicom::platform::SendTo(m_socket, &part, 1, done);
            if (error != 0 && error != vdicom::platform::kSocketWouldBlock && error != 10057)
                return false;
            data += done;
            size -= done;
            if (size != 0)
                VDicomMessageLoop::RunOnce(1);
        }
        return size == 0;
    }
    bool Send(const support::Bytes& bytes) { return Send(bytes.data(), bytes.size()); }
    /// Adds what has arrived to `received`. @return false: the peer has closed
    bool Receive() {
        unsigned char bytes[4096];
        std::size_t done = 0;
        const int error = vdicom::platform::ReceiveFrom(m_socket, bytes, sizeof bytes, done);
        received.insert(received.end(), bytes, bytes + done);
        return done != 0 || error == vdicom::platform::kSocketWouldBlock || error == 10057;
    }
    bool WaitFor(std::size_t size) {
        return RunUntil([&] {
            Receive();
            return received.size() >= size;
        });
    }
    bool WaitForClose() {
        return RunUntil([&] { return !Receive(); });
    }

    support::Bytes received;

private:
    vdicom::platform::SocketHandle m_socket = vdicom::platform::kNoSocket;
};

/// An A-ASSOCIATE-RQ: context 1 verification in implicit VR, 3 CT in explicit VR.
inline support::Bytes AssociateRequest() {
    VDicomAssociate request(1);
    request.SetCalled("ACCEPTOR");
    request.SetCalling("RAW");
    request.AddPresentation(1, 0, kVerification);
    request.AddTransfer(1, kImplicit);
    request.AddPresentation(3, 0, kCT);
    request.AddTransfer(3, kExplicit);
    VDicomULong size = 0;
    request.GetBinary(nullptr, &size);
    support::Bytes bytes(size);
    request.GetBinary(reinterpret_cast<char*>(bytes.data()), &size);
    return bytes;
}

} // namespace loopback
