#include "serve/HostLookup.h"

#include "VDicomMessageLoop.h"
#include "VDicomNet.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <mutex>
#include <new>
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

// What is certainly one: "127.0.0.1" or "::1". All else goes to a thread, which also finds out what is wrong with it.
bool IsAddress(const std::string& host) {
    unsigned int parts[4];
    int end = 0;
    if (std::sscanf(host.c_str(), "%3u.%3u.%3u.%3u%n", &parts[0], &parts[1], &parts[2], &parts[3], &end) == 4)
        return static_cast<std::size_t>(end) == host.size() &&
               std::all_of(parts, parts + 4, [](unsigned int part) { return part <= 255; });
    return std::count(host.begin(), host.end(), ':') > 1 &&
           host.find_first_not_of("0123456789abcdefABCDEF:.") == std::string::npos;
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
        try {
            shared->addresses = addresses.data();
        } catch (const std::bad_alloc&) {
            shared->code = DICOM_ERROR_MEMORY;
        }
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
