// Stores objects until it is killed, for kill_test.py.
//
//   archive_writer FOLDER FIRST [--sync]   tells each object that it would acknowledge: "UID VERSION"; ends after 20
//                                          refusals, which it tells as "refused STATUS COMMENT"
//   archive_writer --list FOLDER           what is in the index: "UID VERSION", the version of the index and of the
//   file
#include "../TestObjects.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

using namespace archive;

constexpr VDicomULong kNumber = 0x00200013, kComments = 0x00204000;

struct Waiting {
    std::string uid;
    int version;
};

void StoreForEver(Archive& archive, int first) {
    std::mt19937 random(static_cast<unsigned>(first));
    int version = first;
    int refusals = 0;
    while (refusals < 20) {
        std::vector<Waiting> turn;
        Outcome outcome;
        for (unsigned count = 1 + random() % 8; count != 0 && outcome.IsSuccess(); --count) {
            const std::string uid = "1.9." + std::to_string(random() % 200); // many of them again
            const std::string number = std::to_string(++version);
            const std::string comments(random() % 60000, 'x');
            VDicomDS object;
            MakeObject(object, uid.c_str(), {{kNumber, number.c_str()}, {kComments, comments.c_str()}});
            outcome = Receive(archive, object);
            turn.push_back({uid, version});
        }
        const Outcome flushed = archive.Store().Flush();
        if (!outcome.IsSuccess())
            turn.pop_back();
        if (!outcome.IsSuccess() || !flushed.IsSuccess())
            std::printf("refused %u %s\n", outcome.status | flushed.status,
                        (outcome.comment + flushed.comment).c_str()),
                ++refusals;
        for (const Waiting& object : flushed.IsSuccess() ? turn : std::vector<Waiting>{})
            std::printf("%s %d\n", object.uid.c_str(), object.version);
        std::fflush(stdout);
    }
}

int List(Archive& archive) {
    VDicomDS identifier;
    Set(identifier, {{tag::kLevel, "IMAGE"}, {tag::kStudy, "1.1"}, {tag::kSeries, "1.1.1"}, {kNumber, ""}});
    std::unique_ptr<Find> find;
    std::unique_ptr<Retrieval> retrieval;
    if (!archive.StartFind(identifier, {}, find).IsSuccess())
        return 1;
    Set(identifier, {{tag::kLevel, "SERIES"}, {kNumber, ""}});
    if (!archive.StartRetrieval(identifier, {}, retrieval).IsSuccess())
        return 1;
    VDicomDS match;
    VDicomDS file;
    RetrievedObject object;
    while (find->Next(match) == Step::match && retrieval->Next(object)) {
        if (object.instanceUid != Text(match, tag::kInstance) || file.LoadDS(object.path.c_str(), 0) != DICOM_OK)
            return 1;
        std::printf("%s %s %s\n", object.instanceUid.c_str(), Text(match, kNumber).c_str(),
                    Text(file, kNumber).c_str());
    }
    return 0;
}

} // namespace

int main(int count, char** arguments) try {
    if (count < 3)
        return 2;
    if (std::string_view(arguments[1]) == "--list") {
        Archive archive({arguments[2], "ARCHIVE"});
        return List(archive);
    }
    Archive archive({arguments[1], "ARCHIVE", count > 3});
    StoreForEver(archive, std::atoi(arguments[2]));
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
