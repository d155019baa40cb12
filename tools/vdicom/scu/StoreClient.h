/// @file StoreClient.h
/// Sends files over one association, one after the other; the next one is read while the peer deals with the last.
#pragma once

#include "scu/Client.h"
#include "scu/StoreJob.h"

#include <array>

namespace program {

class StoreClient final : public Client {
public:
    StoreClient(const Peer& peer, StoreJob& job);

    /// The association ended for the sake of one file, which has been told; the others need another one.
    bool WantsAnother() const { return m_wantsAnother; }

    void OnReceiveCStoreResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, unsigned short status) override;
    void OnSend(int nError, unsigned char nType, VDicomULong nBytes) override;

protected:
    bool Propose(VDicomAssociate& request) override;
    void Start() override;

private:
    /// A file that is ready to be sent, or on its way.
    struct Ready {
        VDicomDS ds;
        ObjectNames names;
        StoreJob::Position position;
        unsigned char context = 0;
        bool isReady = false;
    };

    void PrepareNext();
    bool Prepare(Ready& ready, StoreFile& file);
    void SendNext();
    void TakeStatus(StoreFile& file, unsigned short status);
    void GiveUp(const StoreJob::Position& position, const ObjectNames& names, const std::string& text);
    std::string RefusalOf(const ObjectKind& kind);

    StoreJob& m_job;
    std::vector<StoreContext> m_accepted;
    std::array<Ready, 2> m_slots; ///< one on its way, one being made ready
    std::size_t m_sending = 0;
    StoreJob::Position m_next; ///< the first file that is not made ready yet
    unsigned short m_messageID = 0;
    VDicomULong m_queued = 0;     ///< bytes that were queued for the file on its way
    bool m_isUnderWay = false;    ///< a request has no answer yet
    bool m_waitsForQueue = false; ///< the answer came before the request had left
    bool m_wantsAnother = false;
};

} // namespace program
