// Whole associations over loopback: both ends on one thread, and a server on a thread of its own. Rates are of real
// time.
#include "VDicomMessageLoop.h"
#include "VDicomNet.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr const char* kVerification = "1.2.840.10008.1.1";
constexpr const char* kCT = "1.2.840.10008.5.1.4.1.1.2";
constexpr const char* kStudyRootFind = "1.2.840.10008.5.1.4.1.2.2.1";

class Acceptor : public VDicomNet {
public:
    Acceptor() : VDicomNet(nullptr, DICOM_SECURE_NONE) {}
    void OnReceiveAssociateRequest(VDicomAssociate* request) override {
        VDicomAssociate accept(0);
        for (int i = 0; i < request->GetPresentationCount(); ++i) {
            const unsigned char id = request->GetPresentation(i);
            accept.AddPresentation(id, 0, request->GetAbstract(id));
            accept.AddTransfer(id, request->GetTransfer(id, 0));
        }
        accept.SetMaxLength(1, 65536);
        SendAssociateAccept(&accept);
    }
    void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) override {
        SendCEchoResponse(id, messageID, classUID, 0);
    }
    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short, const char*, unsigned short,
                                VDicomDS*) override {
        SendCStoreResponse(id, messageID, classUID, instanceUID, 0);
    }
    void OnReceiveReleaseRequest() override { SendReleaseResponse(); }
    /// Objects of this size and more go into a file of the application, as an archive has it.
    VDicomFile* OnReceiveTarget(unsigned char, VDicomDS*) override {
        if (!s_toFile)
            return nullptr;
        m_target.Close(1);
        m_target.Open(nullptr, DICOM_FILE_MODE_SCRATCH);
        return &m_target;
    }
    static inline bool s_toFile = false;

private:
    VDicomFile m_target;
};

class Server : public VDicomNet {
public:
    Server() : VDicomNet(nullptr, DICOM_SECURE_NONE) {
        Listen("127.0.0.1", 0, 1024);
        GetHostInfo(nullptr, &port);
    }
    void OnAccept(int) override {
        auto client = std::make_unique<Acceptor>();
        if (Accept(client.get()) == DICOM_OK)
            static_cast<void>(client.release()); // OnClose deletes it
    }
    void OnClose(int, VDicomNet* connection) override { delete connection; }
    ~Server() override {
        while (VDicomNet* client = GetClient(0))
            delete client;
    }
    unsigned int port = 0;
};

/// A server on a thread of its own.
class ServerThread {
public:
    ServerThread() : m_thread([this] { Run(); }) {
        while (m_port == 0)
            std::this_thread::yield();
    }
    ~ServerThread() {
        m_ended = true;
        VDicomMessageLoop::WakeUp(m_loop);
        m_thread.join();
    }
    ServerThread(const ServerThread&) = delete;
    ServerThread& operator=(const ServerThread&) = delete;
    unsigned int Port() const { return m_port; }

private:
    void Run() {
        Server server;
        m_loop = VDicomMessageLoop::GetLoop();
        m_port = server.port;
        while (!m_ended)
            VDicomMessageLoop::RunOnce(1000);
    }
    std::atomic<unsigned int> m_port{0};
    std::atomic<std::uintptr_t> m_loop{0};
    std::atomic<bool> m_ended{false};
    std::thread m_thread;
};

class Requestor : public VDicomNet {
public:
    Requestor() : VDicomNet(nullptr, DICOM_SECURE_NONE) {}
    void OnConnect(int) override {
        VDicomAssociate request(1);
        request.AddPresentation(1, 0, kVerification);
        request.AddTransfer(1, "1.2.840.10008.1.2");
        request.AddPresentation(3, 0, kCT);
        request.AddTransfer(3, "1.2.840.10008.1.2.1");
        request.AddPresentation(5, 0, kStudyRootFind);
        request.AddTransfer(5, "1.2.840.10008.1.2.1");
        SendAssociateRequest(&request);
    }
    void OnReceiveCEchoResponse(unsigned char, unsigned short, const char*, unsigned short) override { ++answers; }
    void OnReceiveCStoreResponse(unsigned char, unsigned short, const char*, const char*, unsigned short) override {
        ++answers;
    }
    void OnReceiveReleaseResponse() override {
        Close();
        ++answers;
    }
    void Open(unsigned int port) {
        Connect(nullptr, 0, "127.0.0.1", port);
        while (IsAssociated() == 0)
            VDicomMessageLoop::RunOnce(1000);
    }
    void WaitFor(VDicomUInt64 count) const {
        while (answers < count)
            VDicomMessageLoop::RunOnce(1000);
    }
    /// A server that ends must not keep the benchmark waiting.
    void OnClose(int nError, VDicomNet*) override {
        std::fprintf(stderr, "the server has closed the connection: %d\n", nError);
        std::exit(1);
    }
    VDicomUInt64 answers = 0;
};

void SetPixels(VDicomDS& image, std::size_t size) {
    const std::string pixels(size, 'p');
    image.FindSetValue(nullptr, 0x00080016, VDicomVRCode('U', 'I'), kCT, 1);
    DICOMELEMENT* e = image.InsertElement(nullptr, 1, 0x7FE00010, VDicomVRCode('O', 'W'), 0, 0);
    image.SetBinaryValue(e, pixels.data(), static_cast<VDicomULong>(size));
}

/// Memory of this process, in KiB.
double Resident() {
    std::ifstream status("/proc/self/statm");
    double pages = 0;
    status >> pages >> pages;
    return pages * 4;
}

struct Started {
    Started() { VDicomNet::StartUp(); }
    ~Started() { VDicomNet::ShutDown(); }
};

void Echo(benchmark::State& state) {
    const Started started;
    const ServerThread server;
    Requestor client;
    client.Open(server.Port());
    for ([[maybe_unused]] auto _ : state) {
        client.SendCEchoRequest(1, 1, kVerification);
        client.WaitFor(client.answers + 1);
    }
    state.SetItemsProcessed(state.iterations());
}

void EchoOnOneThread(benchmark::State& state) {
    const Started started;
    const Server server;
    Requestor client;
    client.Open(server.port);
    for ([[maybe_unused]] auto _ : state) {
        client.SendCEchoRequest(1, 1, kVerification);
        client.WaitFor(client.answers + 1);
    }
    state.SetItemsProcessed(state.iterations());
}

void Store(benchmark::State& state) {
    const Started started;
    const ServerThread server;
    Requestor client;
    client.Open(server.Port());
    VDicomDS image;
    SetPixels(image, static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        client.SendCStoreRequest(3, 1, kCT, "1.2.3", 0, nullptr, 0, &image);
        client.WaitFor(client.answers + 1);
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

/// Port of the `vdicom serve` that some of these talk to (bench/net_peers.py starts it); 0: there is none.
unsigned int OtherPort() {
    const char* port = std::getenv("VDICOM_BENCH_PORT");
    return port == nullptr ? 0 : static_cast<unsigned int>(std::atoi(port));
}

/// An object in a file, sent from there, received into a file.
void StoreInPlace(benchmark::State& state) {
    const Started started;
    Acceptor::s_toFile = true;
    const std::string path = (std::filesystem::temp_directory_path() / "vdicom_bench_store").string();
    {
        VDicomDS image;
        SetPixels(image, static_cast<std::size_t>(state.range(0)));
        image.SaveDS(path.c_str(), DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE);
    }
    {
        const ServerThread server;
        Requestor client;
        client.SetSendInPlace(1);
        client.Open(server.Port());
        VDicomDS image;
        image.LoadDS(path.c_str(), 0);
        for ([[maybe_unused]] auto _ : state) {
            client.SendCStoreRequest(3, 1, kCT, "1.2.3", 0, nullptr, 0, &image);
            client.WaitFor(client.answers + 1);
        }
    }
    Acceptor::s_toFile = false;
    std::filesystem::remove(path);
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void Associations(benchmark::State& state) {
    const Started started;
    const ServerThread server;
    for ([[maybe_unused]] auto _ : state) {
        Requestor client;
        client.Open(server.Port());
        client.SendReleaseRequest();
        client.WaitFor(1);
    }
    state.SetItemsProcessed(state.iterations());
}

/// 10,000 associations with the other server, and the rates of the first and the last thousand.
void AssociationsInTurn(benchmark::State& state) {
    if (OtherPort() == 0)
        return state.SkipWithError("no server at VDICOM_BENCH_PORT");
    using Clock = std::chrono::steady_clock;
    const Started started;
    std::vector<Clock::time_point> ends;
    for ([[maybe_unused]] auto _ : state) {
        Requestor client;
        client.Open(OtherPort());
        client.SendReleaseRequest();
        client.WaitFor(1);
        ends.push_back(Clock::now());
    }
    const auto rate = [&](std::size_t from, std::size_t to) {
        return static_cast<double>(to - from) / std::chrono::duration<double>(ends[to] - ends[from]).count();
    };
    state.counters["first_thousand"] = rate(0, 1000);
    state.counters["last_thousand"] = rate(ends.size() - 1001, ends.size() - 1);
    state.SetItemsProcessed(state.iterations());
}

class Inquirer : public Requestor {
public:
    void OnReceiveCFindResponse(unsigned char, unsigned short, const char*, unsigned short status, VDicomDS*) override {
        ++responses;
        ++answers;
        isOver = (status & 0xFF00) != 0xFF00;
    }
    VDicomUInt64 responses = 0;
    bool isOver = true;
};

/// From a C-FIND request on an open association to its first response; the index of the other server has the study
/// VDICOM_BENCH_STUDY with a series of 2,000 images.
void FirstMatch(benchmark::State& state) {
    const char* study = std::getenv("VDICOM_BENCH_STUDY");
    if (OtherPort() == 0 || study == nullptr)
        return state.SkipWithError("no server at VDICOM_BENCH_PORT with VDICOM_BENCH_STUDY");
    const Started started;
    Inquirer client;
    client.Open(OtherPort());
    VDicomDS identifier;
    for (const auto& [tag, text] : {std::pair{0x00080018u, std::string()},
                                    {0x00080052u, std::string("IMAGE")},
                                    {0x0020000Du, std::string(study)},
                                    {0x0020000Eu, std::string(study) + ".1"}})
        identifier.FindSetValue(nullptr, tag, 0, text.c_str(), 1);
    for ([[maybe_unused]] auto _ : state) {
        client.responses = 0;
        client.isOver = false;
        client.SendCFindRequest(5, 1, kStudyRootFind, 0, &identifier);
        while (client.responses == 0)
            VDicomMessageLoop::RunOnce(1000);
        state.PauseTiming();
        while (!client.isOver)
            VDicomMessageLoop::RunOnce(1000);
        if (client.responses != 2001)
            return state.SkipWithError("not 2,000 matches");
        state.ResumeTiming();
    }
}

/// Sends an object of 10 KB again and again, each with a UID of its own.
class Storer : public Requestor {
public:
    explicit Storer(int number) : m_series("1.2.840.999001.8." + std::to_string(number)) {
        SetPixels(m_image, 10000);
        for (const auto& [tag, text] :
             {std::pair{0x00100020u, std::string("P")}, {0x0020000Du, m_series}, {0x0020000Eu, m_series + ".1"}})
            m_image.FindSetValue(nullptr, tag, 0, text.c_str(), 1);
    }
    void Send() {
        const std::string uid = m_series + ".1." + std::to_string(++m_number);
        m_image.FindSetValue(nullptr, 0x00080018, 0, uid.c_str(), 1);
        SendCStoreRequest(3, 1, kCT, uid.c_str(), 0, nullptr, 0, &m_image);
    }
    void OnReceiveCStoreResponse(unsigned char, unsigned short, const char*, const char*,
                                 unsigned short status) override {
        refused += status == 0 ? 0 : 1;
        ++answers;
        ++s_answers;
        if (s_answers < s_wanted)
            Send();
    }
    VDicomUInt64 refused = 0;
    static inline VDicomUInt64 s_answers = 0, s_wanted = 0;

private:
    VDicomDS m_image;
    std::string m_series;
    VDicomUInt64 m_number = 0;
};

/// Many associations, open at once on one thread, each with an object under way all the time: 100,000 in all. The
/// server is on the same thread, and memory that of both ends; or it is the other one.
void ManyStore(benchmark::State& state) {
    const Started started;
    const double before = Resident();
    const Server server;
    const unsigned int port = OtherPort() == 0 ? server.port : OtherPort();
    std::vector<std::unique_ptr<Storer>> clients;
    for (int i = 0; i < state.range(0); ++i) {
        clients.push_back(std::make_unique<Storer>(i));
        clients.back()->Open(port);
    }
    state.counters["KiB_open"] = (Resident() - before) / static_cast<double>(state.range(0));
    constexpr VDicomUInt64 kObjects = 100'000;
    for ([[maybe_unused]] auto _ : state) {
        Storer::s_answers = 0;
        Storer::s_wanted = kObjects;
        for (const auto& client : clients)
            client->Send();
        // Those that are still under way at the end are answered too.
        while (Storer::s_answers < kObjects + clients.size() - 1)
            VDicomMessageLoop::RunOnce(1000);
    }
    const auto [least, most] = std::minmax_element(
        clients.begin(), clients.end(), [](const auto& a, const auto& b) { return a->answers < b->answers; });
    state.counters["least"] = static_cast<double>((*least)->answers);
    state.counters["most"] = static_cast<double>((*most)->answers);
    state.counters["refused"] = static_cast<double>(
        std::accumulate(clients.begin(), clients.end(), VDicomUInt64{0},
                        [](VDicomUInt64 sum, const auto& client) { return sum + client->refused; }));
    state.counters["KiB_stored"] = (Resident() - before) / static_cast<double>(state.range(0));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kObjects));
}

BENCHMARK(Echo)->UseRealTime();
BENCHMARK(EchoOnOneThread)->UseRealTime();
BENCHMARK(Store)->Arg(10000)->Arg(526 * 1024)->UseRealTime();
BENCHMARK(StoreInPlace)->Arg(1 << 30)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Associations)->UseRealTime();
BENCHMARK(AssociationsInTurn)->Iterations(10000)->UseRealTime();
BENCHMARK(FirstMatch)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(ManyStore)->Arg(1000)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
