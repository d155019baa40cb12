#include "Network.h"

#include "Connection.h"

#include <atomic>
#include <mutex>

namespace vdicom {

namespace {

std::mutex& Guard() {
    static std::mutex mutex;
    return mutex;
}

std::atomic<unsigned int> started{0};

constexpr unsigned int kFirstError = 10000; // of Windows Sockets

struct ErrorRow {
    unsigned int socketError;
    DICOMERROR code;
};
constexpr ErrorRow kErrors[] = {
    {10004, DICOM_ERROR_SOCKET_INTERRUPTED},   {10013, DICOM_ERROR_SOCKET_ACCESS},
    {10014, DICOM_ERROR_SOCKET_FAULT},         {10022, DICOM_ERROR_SOCKET_ARGUMENT},
    {10024, DICOM_ERROR_SOCKET_HANDLES},       {10035, DICOM_ERROR_SOCKET_WOULD_BLOCK},
    {10036, DICOM_ERROR_SOCKET_IN_PROGRESS},   {10038, DICOM_ERROR_SOCKET_NO_SOCKET},
    {10039, DICOM_ERROR_SOCKET_DESTINATION},   {10040, DICOM_ERROR_SOCKET_MESSAGE_SIZE},
    {10041, DICOM_ERROR_SOCKET_PROTOCOL_TYPE}, {10043, DICOM_ERROR_SOCKET_PROTOCOL},
    {10044, DICOM_ERROR_SOCKET_TYPE},          {10045, DICOM_ERROR_SOCKET_OPERATION},
    {10047, DICOM_ERROR_SOCKET_FAMILY},        {10048, DICOM_ERROR_SOCKET_ADDRESS_USED},
    {10049, DICOM_ERROR_SOCKET_ADDRESS},       {10050, DICOM_ERROR_SOCKET_NETWORK_DOWN},
    {10051, DICOM_ERROR_SOCKET_UNREACHABLE},   {10052, DICOM_ERROR_SOCKET_NETWORK_RESET},
    {10053, DICOM_ERROR_SOCKET_ABORTED},       {10054, DICOM_ERROR_SOCKET_RESET},
    {10055, DICOM_ERROR_SOCKET_BUFFERS},       {10056, DICOM_ERROR_SOCKET_CONNECTED},
    {10057, DICOM_ERROR_SOCKET_NOT_CONNECTED}, {10058, DICOM_ERROR_SOCKET_SHUT_DOWN},
    {10060, DICOM_ERROR_SOCKET_TIMED_OUT},     {10061, DICOM_ERROR_SOCKET_REFUSED},
    {10091, DICOM_ERROR_SOCKET_SYSTEM},        {10092, DICOM_ERROR_SOCKET_VERSION},
    {10093, DICOM_ERROR_SOCKET_NOT_STARTED},   {11001, DICOM_ERROR_SOCKET_HOST},
    {11002, DICOM_ERROR_SOCKET_HOST_LATER},    {11003, DICOM_ERROR_SOCKET_NAME_SERVICE},
    {11004, DICOM_ERROR_SOCKET_HOST_DATA},
};

unsigned int Begin() {
    if (!platform::RegisterMessageWindows(DICOM_NET_WINDOW_CLASS, &Connection::OnMessage))
        return DICOM_ERROR_MEMORY;
    const int error = platform::StartSockets();
    if (error == 0)
        return DICOM_OK;
    platform::UnregisterMessageWindows();
    return VDicomNet::GetError(static_cast<VDicomULong>(error));
}

} // namespace

unsigned int StartNetwork() {
    const std::lock_guard<std::mutex> lock(Guard());
    if (started == 0) {
        if (const unsigned int code = Begin(); code != DICOM_OK)
            return code;
    }
    ++started;
    return DICOM_OK;
}

unsigned int StopNetwork() {
    const std::lock_guard<std::mutex> lock(Guard());
    if (started == 0)
        return DICOM_ERROR_SOCKET_NOT_STARTED;
    if (started == 1) {
        if (!platform::UnregisterMessageWindows())
            return DICOM_ERROR_SOCKET_CONNECTED;
        platform::StopSockets();
    }
    --started;
    return DICOM_OK;
}

bool IsNetworkStarted() { return started != 0; }

} // namespace vdicom

unsigned int VDicomNet::GetError(VDicomULong socketError) {
    if (socketError == DICOM_ERROR_SOCKET_OTHER)
        return DICOM_ERROR_SOCKET_OTHER;
    const auto number = static_cast<unsigned int>(socketError < vdicom::kFirstError
                                                      ? vdicom::platform::SocketErrorOf(static_cast<int>(socketError))
                                                      : static_cast<int>(socketError));
    for (const vdicom::ErrorRow& row : vdicom::kErrors) {
        if (row.socketError == number)
            return row.code;
    }
    return DICOM_ERROR_SOCKET;
}
