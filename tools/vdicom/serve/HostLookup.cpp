#include "serve/HostLookup.h"

#include "VDicomMessageLoop.h"
#include "VDicomNet.h"

#include <array>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>

namespace program {

struct HostLookup::Shared {
    std::mutex mutex;
    bool isDone = false;
    int wanted = 0; ///< how many want the answer
    unsigned int code = DICOM_OK;
    std::string addresses;
};

namespace {

// An IPv6 address has a colon, and an IPv4 address nothing but digits and dots.
bool IsAddress(const std::string& host) {
    return host.find(':') != std::string::npos || host.find_first_not_of("0123456789.") == std::string::npos;
}

} // namespace

HostLookup::HostLookup(const std::string& host) {
    // One thread for a name, however many ask for it.
    static std::map<std::string, std::weak_ptr<Shared>> underWay;
    if (IsAddress(host)) {
        m_shared = std::make_shared<Shared>();
        m_shared->addresses = host;
        m_shared->isDone = true;
        m_shared->wanted = 1;
        return;
    }
    m_shared = underWay[host].lock();
    if (m_shared != nullptr) {
        const std::lock_guard<std::mutex> lock(m_shared->mutex);
        if (!m_shared->isDone) {
            ++m_shared->wanted;
            return;
        }
    }
    m_shared = std::make_shared<Shared>();
    m_shared->wanted = 1;
    underWay[host] = m_shared;
    // Nobody waits for the thread's end: the name server decides when that is.
    std::thread([shared = m_shared, host, loop = VDicomMessageLoop::GetLoop()] {
        std::array<char, 16 * DICOM_ADDRESS_SIZE> addresses{};
        const unsigned int code = VDicomNet::FindAddresses(host.c_str(), addresses.data(), addresses.size());
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->code = code;
        shared->addresses = addresses.data();
        shared->isDone = true;
        if (shared->wanted != 0)
            VDicomMessageLoop::WakeUp(loop);
    }).detach();
}

HostLookup::~HostLookup() {
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    --m_shared->wanted;
}

bool HostLookup::IsDone() const {
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    return m_shared->isDone;
}

unsigned int HostLookup::Code() const { return m_shared->code; }

std::vector<std::string> HostLookup::Addresses() const {
    std::istringstream words(m_shared->addresses);
    std::vector<std::string> addresses;
    for (std::string address; words >> address;)
        addresses.push_back(address);
    return addresses;
}

} // namespace program
