// Whole associations over loopback: both ends on one thread, and a server on a thread of its own. Rates are of real
// time.
#include "VDicomMessageLoop.h"
#include "VDicomNet.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr const char* kVerification = "1.2.840.10008.1.1";
constexpr const char* kCT = "1.2.840.10008.5.1.4.1.1.2";

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

/// Each of many open associations stores an object of 10 KB; memory is that of both ends.
void ManyStore(benchmark::State& state) {
    const Started started;
    const double before = Resident();
    const Server server;
    std::vector<std::unique_ptr<Requestor>> clients;
    VDicomDS image;
    SetPixels(image, 10000);
    for (int i = 0; i < state.range(0); ++i) {
        clients.push_back(std::make_unique<Requestor>());
        clients.back()->Open(server.port);
    }
    state.counters["KiB_open"] = (Resident() - before) / static_cast<double>(state.range(0));
    VDicomUInt64 round = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++round;
        for (const auto& client : clients)
            client->SendCStoreRequest(3, 1, kCT, "1.2.3", 0, nullptr, 0, &image);
        for (const auto& client : clients)
            client->WaitFor(round);
    }
    state.counters["KiB_stored"] = (Resident() - before) / static_cast<double>(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(Echo)->UseRealTime();
BENCHMARK(EchoOnOneThread)->UseRealTime();
BENCHMARK(Store)->Arg(10000)->Arg(526 * 1024)->UseRealTime();
BENCHMARK(StoreInPlace)->Arg(1 << 30)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Associations)->UseRealTime();
BENCHMARK(ManyStore)->Arg(1000)->Iterations(10)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
