// The table of messages against their definition, and every message through building, bytes and reading.
#include "CommandTable.h"
#include "HexBytes.h"
#include "Messages.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace support;
using namespace vdicom;

namespace {

constexpr VDicomULong kAttributes[] = {0x00100010, 0x00201209, 0xFFFEE000};

/// Every value another one, so that none can stand for another.
CommandValues AllValues() {
    CommandValues values;
    unsigned short number = 0x8101;
    static const char* const texts[] = {"1.2.1", "1.2.22", "DESTINATION", "1.2.3.4", "1.2.3.55", "ORIGINATOR 1"};
    std::size_t text = 0;
    for (const auto* e = CommandElements(); e != CommandElements() + kCommandElements; ++e) {
        if (e->number != nullptr)
            values.*e->number = number++;
        if (e->text != nullptr)
            values.*e->text = texts[text++];
    }
    values.attributes = kAttributes;
    values.attributeCount = static_cast<VDicomULong>(std::size(kAttributes));
    return values;
}

std::string Hex4(unsigned int value) {
    char text[8];
    std::snprintf(text, sizeof text, " %04X", value & 0xFFFF);
    return text;
}

} // namespace

TEST(CommandTable, EveryMessageThereAndBack) {
    ASSERT_EQ(std::size(kMessages), kCommands);
    const CommandValues values = AllValues();
    for (std::size_t i = 0; i < kCommands; ++i) {
        const auto message = static_cast<Command>(i);
        const CommandRow& row = *FindCommand(message);
        EXPECT_EQ(FindCommandField(row.field), &row);
        for (const bool hasData : {false, true}) {
            VDicomDS built;
            ASSERT_EQ(WriteCommand(message, values, hasData, built), 0u);
            // Through the bytes, as a peer gets them: ascending tags, implicit VR little endian.
            Bytes bytes = Save(built, 0x16);
            VDicomFile stream;
            stream.Open(nullptr, DICOM_FILE_MODE_MEMORY);
            stream.SetMemoryBuffer(bytes.data(), static_cast<VDicomULong>(bytes.size()), 1);
            VDicomDS set;
            ASSERT_EQ(set.LoadDS(&stream, 0, DICOM_TS_IMPLICIT_LITTLE), 0u);
            EXPECT_EQ(Faults(set), std::vector<unsigned int>());
            ReceivedCommand read;
            ReadCommand(set, read);
            EXPECT_EQ(read.command, message);
            std::string line = row.name + Hex4(read.field) + Hex4(hasData ? read.dataSetType : row.withDataSet);
            EXPECT_TRUE(hasData || read.dataSetType == kNoDataSet);
            for (DICOMELEMENT* e = set.GetFirstElement(nullptr, 0, 1); e != nullptr; e = set.GetNextElement(e, 0, 1)) {
                if (e->nTag != 0x0100 && e->nTag != 0x0800)
                    line += Hex4(e->nTag);
            }
            EXPECT_EQ(line, kMessages[i]);
            for (std::size_t n = 0; n < kCommandElements; ++n) {
                const CommandElement& element = CommandElements()[n];
                const bool has = set.FindFirstElement(nullptr, element.tag, 1) != nullptr;
                if (element.number != nullptr) {
                    EXPECT_EQ(read.*element.number, has ? values.*element.number : 0) << row.name << element.name;
                } else if (element.text != nullptr) {
                    EXPECT_STREQ(read.*element.text, has ? values.*element.text : "") << row.name << element.name;
                }
            }
            EXPECT_EQ(read.list, message != Command::nGetRequest
                                     ? std::vector<VDicomULong>()
                                     : std::vector<VDicomULong>(std::begin(kAttributes), std::end(kAttributes)));
            const bool requested = line.find(" 0003") != std::string::npos;
            EXPECT_STREQ(read.classUID, requested ? "1.2.22" : message == Command::cCancelRequest ? "" : "1.2.1");
            EXPECT_STREQ(read.instanceUID, requested                                 ? "1.2.3.55"
                                           : line.find(" 1000") != std::string::npos ? "1.2.3.4"
                                                                                     : "");
            EXPECT_EQ(DescribeCommand(set).find(std::string(row.name) + ", "), 0u);
        }
    }
}

TEST(CommandTable, TextsThatAreNotGiven) {
    VDicomDS set;
    EXPECT_EQ(WriteCommand(Command::cStoreRequest, {}, true, set), 0u);
    EXPECT_EQ(set.FindFirstElement(nullptr, 0x00000002, 1), nullptr);
    EXPECT_NE(set.FindFirstElement(nullptr, 0x00001031, 1), nullptr) << "always written";
    EXPECT_EQ(set.GetCountElement(nullptr), 5u);
    EXPECT_EQ(WriteCommand(Command::cCancelRequest, {}, true, set), 0u);
    for (std::size_t i = 1; i < kCommands; ++i) {
        const auto message = static_cast<Command>(i);
        EXPECT_TRUE(message == Command::cCancelRequest ||
                    WriteCommand(message, {}, false, set) == DICOM_ERROR_PARAMETER);
    }
    EXPECT_EQ(WriteCommand(Command::unknown, AllValues(), false, set), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(set.GetCountElement(nullptr), 3u) << "what was refused changed nothing";
    CommandValues all;
    all.requestedClass = "1.2";
    all.requestedInstance = "";
    EXPECT_EQ(WriteCommand(Command::nGetRequest, all, false, set), 0u);
    EXPECT_EQ(Describe(set), "(0000,0003) UI 4: 31 2E 32 00\n(0000,0100) US 2: 10 01\n(0000,0110) US 2: 00 00\n"
                             "(0000,0800) US 2: 01 01\n(0000,1001) UI 0:\n(0000,1005) AT 0:\n");
}

TEST(CommandTable, WhatPeersSend) {
    const std::string uid(70, '1');
    const struct {
        Bytes bytes;
        const char* line;
        Command command;
    } cases[] = {
        {"0000 0001 02000000 7777"_bytes, "unknown command 0x7777", Command::unknown},
        {"0000 0200 04000000 '1.2' 00"_bytes, "unknown command 0x0000, Affected SOP Class UID 1.2", Command::unknown},
        {"0000 0001 02000000 0100 0000 0008 02000000 0000 0000 3010 04000000 'AE' 1B20 0000 3110 00000000"_bytes,
         "C-STORE-RQ, Move Originator Application Entity Title AE?, Move Originator Message ID 0, data set",
         Command::cStoreRequest},
        {"0000 0001 02000000 1001 0000 0510 08000000 1000 1000 0800 1800"_bytes,
         "N-GET-RQ, Attribute Identifier List (0010,0010) (0008,0018)", Command::nGetRequest},
        {"0000 0001 02000000 2080 0000 0009 02000000 00FF 0000 0008 02000000 0101"_bytes, "C-FIND-RSP, Status 0xFF00",
         Command::cFindResponse},
    };
    for (const auto& one : cases) {
        VDicomDS set;
        ASSERT_EQ(Load(set, one.bytes), 0u);
        EXPECT_EQ(DescribeCommand(set), one.line);
        ReceivedCommand read;
        ReadCommand(set, read);
        EXPECT_EQ(read.command, one.command);
    }
    VDicomDS set;
    Bytes bytes = "0000 0200 46000000"_bytes + Bytes(uid.begin(), uid.end());
    ASSERT_EQ(Load(set, bytes), 0u);
    ReceivedCommand read;
    ReadCommand(set, read);
    EXPECT_EQ(read.classUID, uid.substr(0, 64));
}
