#include "scu/ObjectFolder.h"

#include "TestFolder.h"

#include <gtest/gtest.h>

namespace program {
namespace {

class ObjectFolderTest : public testing::Test {
protected:
    /// A C-STORE request.
    static void Announce(VDicomDS& command, const char* instanceUid) {
        command.FindSetValue(nullptr, 0x00000002, vdicom::vr::UI, "1.2.840.10008.5.1.4.1.1.7", 1);
        command.FindSetValue(nullptr, 0x00001000, vdicom::vr::UI, instanceUid, 1);
    }

    /// Receives an object with one patient ID. @param holds the instance that it is
    unsigned short Receive(ObjectFolder& folder, const char* announced, const char* holds, const char* patient) {
        IncomingObject incoming(folder);
        VDicomDS command, object, data;
        Announce(command, announced);
        VDicomFile* file = incoming.Begin(1, command, "1.2.840.10008.1.2.2", "SENDER");
        if (!file)
            return incoming.Finish(nullptr);
        object.FindSetValue(nullptr, 0x00080018, vdicom::vr::UI, holds, 1);
        object.FindSetValue(nullptr, 0x00100020, vdicom::vr::LO, patient, 1);
        EXPECT_EQ(object.WriteSequence(file, nullptr, DICOM_TS_EXPLICIT_BIG), 0U);
        file->Seek64(0, 0);
        EXPECT_EQ(data.LoadDS(file, 0, 0), 0U);
        return incoming.Finish(&data);
    }

    std::string PatientIn(const std::string& name) {
        VDicomDS ds;
        EXPECT_EQ(ds.LoadDS(m_folder.File(name).c_str(), 0), 0U);
        EXPECT_EQ(ds.GetCountFault(), 0U);
        EXPECT_STREQ(ds.GetTransferSyntaxUID(), "1.2.840.10008.1.2.2");
        char text[65] = "";
        ds.FindGetValue(nullptr, 0x00100020, 5, text, sizeof text);
        return text;
    }

    TestFolder m_folder;
    const std::string m_path = m_folder.Path().string();
};

TEST_F(ObjectFolderTest, ObjectsAppearWholeAndReplaceOthersOnlyWhenToldSo) {
    ObjectFolder folder(m_path, false);
    ASSERT_EQ(folder.Prepare(), "");
    EXPECT_EQ(Receive(folder, "1.2.3", "1.2.3", "first"), 0U);
    EXPECT_EQ(PatientIn("1.2.3.dcm"), "first");
    EXPECT_EQ(Receive(folder, "1.2.3", "1.2.3", "second"), 0U);
    EXPECT_EQ(PatientIn("1.2.3.dcm"), "first");
    EXPECT_EQ(folder.CountKept(), 1U);
    ObjectFolder other(m_path, true);
    ASSERT_EQ(other.Prepare(), "");
    EXPECT_EQ(Receive(other, "1.2.3", "1.2.3", "third"), 0U);
    EXPECT_EQ(PatientIn("1.2.3.dcm"), "third");
    EXPECT_EQ(m_folder.Count(), 1U);
}

TEST_F(ObjectFolderTest, WhatIsWrongOrDoesNotComeLeavesNothing) {
    ObjectFolder folder(m_path, false);
    ASSERT_EQ(folder.Prepare(), "");
    for (const char* name : {"../x", "..", "1.2/3", "", "NUL", "1.2:3"})
        EXPECT_EQ(Receive(folder, name, "1.2.3", "x"), 0x0117U) << name;
    EXPECT_EQ(Receive(folder, "1.2.3", "1.2.4", "x"), 0xA900U);
    {
        IncomingObject incoming(folder);
        EXPECT_EQ(incoming.Finish(nullptr), 0xA900U);
        VDicomDS command;
        Announce(command, "1.2.5");
        EXPECT_NE(incoming.Begin(1, command, "1.2.840.10008.1.2", ""), nullptr);
        EXPECT_EQ(m_folder.Count(), 1U);
    }
    EXPECT_EQ(m_folder.Count(), 0U);
    EXPECT_EQ(folder.CountWritten(), 0U);
    EXPECT_EQ(folder.CountFailed(), 8U);
    {
        // What is refused has a limit, unlike what is taken.
        IncomingObject incoming(folder);
        IncomingObject::Request request;
        VDicomDS command;
        Announce(command, "../x");
        EXPECT_EQ(incoming.Begin(1, command, "1.2.840.10008.1.2", ""), nullptr);
        EXPECT_EQ(incoming.GiveUp(DICOM_ERROR_SIZE, request), 0x0117U);
        EXPECT_EQ(incoming.GiveUp(DICOM_ERROR_SIZE, request), 0U);
        Announce(command, "1.2.6");
        EXPECT_NE(incoming.Begin(1, command, "1.2.840.10008.1.2", ""), nullptr);
        EXPECT_EQ(incoming.GiveUp(DICOM_ERROR_SIZE, request), 0U);
    }
    for (std::size_t i = folder.CountFailed(); i <= ObjectFolder::kMostRefusals; ++i)
        EXPECT_EQ(Receive(folder, "..", "1.2.3", "x"), 0x0117U);
    EXPECT_EQ(folder.CountFailed(), ObjectFolder::kMostRefusals + 1);
    EXPECT_EQ(folder.Refusals().size(), ObjectFolder::kMostRefusals);
    EXPECT_NE(ObjectFolder(m_path + "/\x01/../../../dev/null/x", false).Prepare(), "");
}

} // namespace
} // namespace program
