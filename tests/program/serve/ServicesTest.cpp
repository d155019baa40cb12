#include "serve/Services.h"
#include "serve/Log.h"
#include "serve/PeersFile.h"

#include "TestFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace program;

namespace {

constexpr const char* kCT = "1.2.840.10008.5.1.4.1.1.2";
constexpr const char* kExplicit = "1.2.840.10008.1.2.1";

TEST(Services, EveryStorageClassAndNothingElseIsStorage) {
    const struct {
        const char* uid;
        ServiceKind kind;
        int model;
    } rows[] = {
        {"1.2.840.10008.1.1", ServiceKind::verification, 0},
        {"1.2.840.10008.1.20.1", ServiceKind::commitment, 0},
        {"1.2.840.10008.1.20.2", ServiceKind::none, 0}, // storage commitment pull model, retired
        {"1.2.840.10008.5.1.4.31", ServiceKind::worklist, 0},
        {kCT, ServiceKind::storage, 0},
        {"1.2.840.10008.5.1.4.1.1.999.7", ServiceKind::storage, 0}, // newer than every table
        {"1.3.6.1.4.1.5962.99", ServiceKind::storage, 0},           // private
        {"1.2.840.10008.5.1.4.1.2.1.1", ServiceKind::find, 1},
        {"1.2.840.10008.5.1.4.1.2.2.2", ServiceKind::move, 2},
        {"1.2.840.10008.5.1.4.1.2.3.3", ServiceKind::get, 3},
        {"1.2.840.10008.5.1.4.1.2.4.1", ServiceKind::none, 0},
        {"1.2.840.10008.5.1.4.1.2.1.11", ServiceKind::none, 0},
        {"1.2.840.10008.5.1.1.9", ServiceKind::none, 0}, // print
        {"", ServiceKind::none, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ClassOf(row.uid).kind, row.kind) << row.uid;
        EXPECT_EQ(ClassOf(row.uid).model, row.model) << row.uid;
    }
}

TEST(Services, AnswersFollowSettingsAndTheRequest) {
    ServeSettings settings;
    settings.title = "ARCHIVE";
    PeersFile peers;
    ASSERT_EQ(peers.Parse("FRIEND 127.0.0.1 104"), "");
    VDicomAssociate request(1);
    request.SetCalled("OTHER");
    request.SetCalling("STRANGER");
    request.SetMaxLength(1, 16384);
    request.AddPresentation(1, 0, kCT);
    request.AddTransfer(1, "1.2.840.10008.1.2.4.999");
    request.SetRoleSelect(1, 1, 1, 1);
    request.AddPresentation(3, 0, uid::kWorklist);
    request.AddTransfer(3, kExplicit);
    request.AddPresentation(5, 0, "1.2.840.10008.5.1.4.1.2.2.1");
    request.AddTransfer(5, "1.2.840.10008.1.2.4.70");

    VDicomAssociate accept(0);
    DICOMASSOCIATEANSWER answer{};
    ASSERT_EQ(AnswerRequest(request, settings, peers, accept, answer), DICOM_OK);
    EXPECT_NE(answer.bAccepted, 0u);
    EXPECT_EQ(accept.GetMaxLength(), 16384u); // no more than the requestor takes, since it limits what we send
    EXPECT_EQ(accept.GetResult(1), DICOM_PRESENTATION_ACCEPTED);
    EXPECT_EQ(accept.GetProviderRole(1), 1);
    EXPECT_EQ(accept.GetResult(3), DICOM_PRESENTATION_ABSTRACT_SYNTAX); // there is no worklist
    EXPECT_EQ(accept.GetResult(5), DICOM_PRESENTATION_TRANSFER_SYNTAXES);

    settings.worklist = "worklist";
    settings.checkCalled = true;
    ASSERT_EQ(AnswerRequest(request, settings, peers, accept, answer), DICOM_OK);
    EXPECT_EQ(answer.bAccepted, 0u);
    EXPECT_EQ(answer.nReason, 7); // called AE title not recognised
    request.SetCalled("ARCHIVE");
    ASSERT_EQ(AnswerRequest(request, settings, peers, accept, answer), DICOM_OK);
    EXPECT_EQ(accept.GetResult(3), DICOM_PRESENTATION_ACCEPTED);
    settings.knownCallers = true;
    ASSERT_EQ(AnswerRequest(request, settings, peers, accept, answer), DICOM_OK);
    EXPECT_EQ(answer.nReason, 3); // calling AE title not recognised
    request.SetCalling("FRIEND");
    ASSERT_EQ(AnswerRequest(request, settings, peers, accept, answer), DICOM_OK);
    EXPECT_NE(answer.bAccepted, 0u);
}

TEST(PeersFile, FaultsAreNamedAndChangeNothing) {
    PeersFile peers;
    EXPECT_EQ(peers.Parse("# ours\n\n ONE\t127.0.0.1 104 # here\r\nTWO ::1 11112"), "");
    ASSERT_NE(peers.Find("TWO"), nullptr);
    EXPECT_EQ(peers.Find("TWO")->host, "::1");
    EXPECT_EQ(peers.Find("ONE")->port, 104u);
    for (const char* bad : {"ONE 127.0.0.1", "ONE 127.0.0.1 0x68", "ONE 127.0.0.1 99999", "ONE 127.0.0.1 104 more",
                            "SEVENTEENLETTERSX h 104", "A h 1\nA h 2"})
        EXPECT_NE(peers.Parse(bad), "") << bad;
    EXPECT_EQ(peers.Count(), 2u);
}

TEST(Log, WhatPeersSayStaysOneLine) {
    TestFolder folder;
    for (const bool json : {false, true}) {
        const std::string path = (folder.Path() / (json ? "json.log" : "text.log")).string();
        {
            Log log(path, json);
            log.Info("store").Add("instance", "1.2\n{} \"x\"").Add("empty", "").Add("count", 7).AddStatus(0xA700);
        }
        std::ifstream file(path);
        std::string line, more;
        std::getline(file, line);
        EXPECT_FALSE(std::getline(file, more));
        EXPECT_NE(line.find(json ? R"("event":"store","instance":"1.2\u000a{} \"x\"","count":7,"status":"A700"})"
                                 : R"(event=store instance="1.2\u000a{} \"x\"" count=7 status=A700)"),
                  std::string::npos)
            << line;
    }
}

} // namespace
