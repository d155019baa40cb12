// The archive behind `vdicom serve`: storing objects of 10 KB, and queries over an index of 1,000,000 objects, which is
// made when the first of them runs (VDICOM_BENCH_OBJECTS: of so many).
#include "Archive.h"
#include "Schema.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>

namespace {

using namespace archive;

constexpr const char* kCt = "1.2.840.10008.5.1.4.1.1.2";
constexpr const char* kExplicit = "1.2.840.10008.1.2.1";

class Folder {
public:
    Folder()
        : m_path(std::filesystem::temp_directory_path() /
                 ("vdicom-bench-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()))) {
        std::filesystem::create_directories(m_path);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string Path() const { return m_path.string(); }

private:
    std::filesystem::path m_path;
};

void Set(VDicomDS& ds, VDicomULong tag, const std::string& text) { ds.FindSetValue(nullptr, tag, 0, text.c_str(), 1); }

// As many elements as a CT image has.
void FillObject(VDicomDS& ds) {
    Set(ds, tag::kClass, kCt);
    Set(ds, 0x00080020, "20240229");
    Set(ds, 0x00080030, "103015");
    Set(ds, 0x00080050, "A4711");
    Set(ds, 0x00080060, "CT");
    Set(ds, 0x00080090, "Referring^Doctor");
    Set(ds, 0x00081030, "Head without contrast");
    Set(ds, 0x0008103E, "Axial 5 mm");
    Set(ds, tag::kPatientName, "Doe^Jane");
    Set(ds, tag::kPatientID, "P1");
    Set(ds, tag::kBirthDate, "19700101");
    Set(ds, 0x00180015, "HEAD");
    Set(ds, tag::kStudy, "1.2.840.999001.1.1");
    Set(ds, tag::kSeries, "1.2.840.999001.1.1.1");
    const std::string pixels(9000, 'x');
    ds.SetBinaryValue(ds.InsertElement(nullptr, 0, 0x7FE00010, vdicom::vr::OW, 0, 0), pixels.data(), 9000);
}

// Everything but the network: file, attributes, journal, index. The argument: objects per Flush.
void StoreObjects(benchmark::State& state) {
    const Folder folder;
    Archive archive({folder.Path(), "ARCHIVE"});
    VDicomDS object;
    FillObject(object);
    VDicomFile encoded;
    encoded.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    std::int64_t number = 0;
    std::uint64_t refused = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string uid = "1.2.840.999001.2." + std::to_string(++number * 2654435761 % 4294967291);
        Set(object, tag::kInstance, uid);
        Set(object, tag::kSeries, "1.2.840.999001.1.1." + std::to_string(number / 200));
        encoded.Open(nullptr, DICOM_FILE_MODE_MEMORY);
        object.SaveDS(&encoded, DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE);
        VDicomUInt64 size = 0;
        const unsigned char* bytes = encoded.GetMemoryBuffer(&size);
        state.ResumeTiming();
        IncomingFile file;
        VDicomDS data;
        refused += archive.Store().Begin({kCt, uid, kExplicit, "SENDER"}, file).status;
        file.Stream().Write(bytes, static_cast<VDicomULong>(size));
        data.LoadDS(&file.Stream(), 0, DICOM_TS_EXPLICIT_LITTLE);
        refused += archive.Store().Commit(file, data).status;
        if (number % state.range(0) == 0)
            refused += archive.Store().Flush().status;
    }
    archive.Store().Flush();
    if (refused != 0)
        state.SkipWithError("objects were refused");
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(StoreObjects)->ArgName("at once")->Arg(1)->Arg(8)->Arg(32)->Iterations(20000)->Unit(benchmark::kMicrosecond);

void FillRecord(Record& record, std::uint64_t number, std::uint64_t total);

// The index's share of storing.
void PutObjects(benchmark::State& state) {
    const Folder folder;
    const std::string path = folder.Path() + "/index";
    Database database(path, Database::Mode::create);
    CreateSchema(database);
    database.Execute("PRAGMA synchronous = NORMAL");
    IndexWriter writer(database);
    Record record;
    std::uint64_t number = 0;
    for (auto _ : state) {
        FillRecord(record, ++number, 100000);
        writer.Put(record, UsualFile("a/b/c", record.Get(tag::kInstance)), 10000);
        if (number % static_cast<std::uint64_t>(state.range(0)) == 0)
            writer.Commit();
    }
    writer.Commit();
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(PutObjects)->ArgName("at once")->Arg(1)->Arg(8)->Arg(32)->Iterations(50000)->Unit(benchmark::kMicrosecond);

std::uint64_t CountOfObjects() {
    const char* count = std::getenv("VDICOM_BENCH_OBJECTS"); // NOLINT(concurrency-mt-unsafe)
    return count == nullptr ? 1000000 : std::strtoull(count, nullptr, 10);
}

// One series holds a tenth of all objects; the others have a hundred each, two to a study, five studies to a patient.
void FillRecord(Record& record, std::uint64_t number, std::uint64_t total) {
    const bool isLarge = number < total / 10;
    const std::uint64_t series = isLarge ? 0 : number / 100;
    const std::uint64_t study = series / 2, patient = study / 5;
    const auto set = [&](VDicomULong tag, std::string text) { record[*FindAttribute(tag)] = std::move(text); };
    set(tag::kClass, kCt);
    set(tag::kAvailableSyntax, kExplicit);
    set(tag::kInstance, "1.2.840.999001.3." + std::to_string(number * 2654435761 % 4294967291));
    set(tag::kSeries, "1.2.840.999001.4." + std::to_string(series));
    set(tag::kStudy, "1.2.840.999001.5." + std::to_string(study));
    set(tag::kPatientID, "P" + std::to_string(patient));
    set(tag::kPatientName, "Name" + std::to_string(patient * 7919 % 100003) + "^Given");
    set(0x00080020, std::to_string(20100101 + study % 15 * 10000 + study % 12 * 100 + study % 28));
    set(0x00080060, series % 3 == 0 ? "MR" : "CT");
    set(0x00200013, std::to_string(number));
    set(0x00280010, "512");
    set(0x00280011, "512");
}

Archive& LargeArchive() {
    static const Folder folder;
    static const std::unique_ptr<Archive> archive = [] {
        auto made = std::make_unique<Archive>(ArchiveOptions{folder.Path(), "ARCHIVE"});
        Database database(folder.Path() + "/.vdicom/index.sqlite", Database::Mode::write);
        database.Execute("PRAGMA synchronous = OFF");
        IndexWriter writer(database);
        const std::uint64_t total = CountOfObjects();
        Record record;
        for (std::uint64_t number = 0; number < total; ++number) {
            FillRecord(record, number, total);
            const std::string folderOfSeries =
                record.Get(tag::kPatientID) + '/' + record.Get(tag::kStudy) + '/' + record.Get(tag::kSeries);
            writer.Put(record, UsualFile(folderOfSeries, record.Get(tag::kInstance)), 10000);
            if (number % 1000 == 0)
                writer.Commit();
        }
        writer.Commit();
        return made;
    }();
    return *archive;
}

struct Question {
    Root root;
    std::vector<std::pair<VDicomULong, const char*>> keys;
};

const Question kQuestions[] = {
    {Root::study,
     {{tag::kLevel, "IMAGE"},
      {tag::kStudy, "1.2.840.999001.5.0"},
      {tag::kSeries, "1.2.840.999001.4.0"},
      {tag::kInstance, ""},
      {0x00200013, ""},
      {0x00280010, ""},
      {0x00280011, ""}}},
    {Root::study,
     {{tag::kLevel, "STUDY"}, {0x00080020, "20150101-20151231"}, {tag::kPatientName, ""}, {0x00080061, ""}}},
    {Root::study, {{tag::kLevel, "STUDY"}, {tag::kPatientName, "name7*"}, {tag::kPatientID, ""}, {0x00201208, ""}}},
    {Root::patient, {{tag::kLevel, "PATIENT"}, {tag::kPatientName, "*7^*"}}},
};
const char* const kNames[] = {"images of a series", "studies of a year", "studies of a name", "patients by wildcard"};

std::unique_ptr<Find> Ask(const Question& question) {
    VDicomDS identifier;
    for (const auto& [tag, text] : question.keys) {
        identifier.InsertElement(nullptr, 0, tag, 0, 0, 0);
        if (*text != '\0')
            Set(identifier, tag, text);
    }
    std::unique_ptr<Find> find;
    LargeArchive().StartFind(identifier, {question.root, false}, find);
    return find;
}

void FindFirst(benchmark::State& state) {
    const Question& question = kQuestions[state.range(0)];
    LargeArchive();
    VDicomDS match;
    Step step = Step::done;
    for (auto _ : state) {
        const std::unique_ptr<Find> find = Ask(question);
        do
            step = find->Next(match);
        while (step == Step::busy);
    }
    state.SetLabel(std::string(kNames[state.range(0)]) + (step == Step::match ? "" : ": NO MATCH"));
}
BENCHMARK(FindFirst)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

void FindAll(benchmark::State& state) {
    const Question& question = kQuestions[state.range(0)];
    LargeArchive();
    VDicomDS match;
    std::int64_t matches = 0;
    for (auto _ : state) {
        const std::unique_ptr<Find> find = Ask(question);
        for (Step step = find->Next(match); step != Step::done; step = find->Next(match))
            matches += step == Step::match ? 1 : 0;
    }
    state.SetItemsProcessed(matches);
    state.SetLabel(std::string(kNames[state.range(0)]) + ", " + std::to_string(matches / state.iterations()));
}
BENCHMARK(FindAll)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

// The longest that other connections wait for a query without matches.
void FindNothing(benchmark::State& state) {
    LargeArchive();
    VDicomDS match;
    double longest = 0;
    for (auto _ : state) {
        const std::unique_ptr<Find> find =
            Ask({Root::study, {{tag::kLevel, "STUDY"}, {0x00080061, "XX"}, {0x00081030, "*nothing*"}}});
        for (Step step = Step::busy; step != Step::done;) {
            const auto start = std::chrono::steady_clock::now();
            step = find->Next(match);
            longest =
                std::max(longest, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        }
    }
    state.counters["longest ms"] = longest * 1000;
}
BENCHMARK(FindNothing)->Unit(benchmark::kMillisecond);

} // namespace
