#include "scu/PeerTexts.h"

#include "scu/Peer.h"
#include "scu/Uid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace program {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(PeerTexts, KindsOfStatus) {
    for (const int status : {0xB000, 0xB007, 0xBFFF, 0x0001, 0x0107, 0x0116})
        EXPECT_EQ(KindOfStatus(static_cast<unsigned short>(status)), StatusKind::warning) << status;
    for (const int status : {0xA700, 0xA900, 0xC000, 0xCFFF, 0x0110, 0x0122, 0x0124, 0xFF02, 0x0002})
        EXPECT_EQ(KindOfStatus(static_cast<unsigned short>(status)), StatusKind::failure) << status;
    EXPECT_EQ(KindOfStatus(0), StatusKind::success);
    EXPECT_EQ(KindOfStatus(0xFF00), StatusKind::pending);
    EXPECT_EQ(KindOfStatus(0xFF01), StatusKind::pending);
    EXPECT_EQ(KindOfStatus(0xFE00), StatusKind::cancelled);
}

TEST(PeerTexts, AStatusMeansWhatItsServiceSays) {
    EXPECT_THAT(StatusText(Service::store, 0xA7FF, ""), HasSubstr("A7FF, the peer is out of resources"));
    EXPECT_THAT(StatusText(Service::find, 0xA7FF, ""), Not(HasSubstr("out of resources")));
    EXPECT_THAT(StatusText(Service::move, 0xA801, ""), HasSubstr("does not know the destination"));
    EXPECT_THAT(StatusText(Service::get, 0xC123, "disk on fire"), HasSubstr("(the peer says: disk on fire)"));
    EXPECT_THAT(StatusText(Service::echo, 0x0122, ""), HasSubstr("does not support the SOP class"));
    EXPECT_THAT(StatusText(Service::store, 0x1234, ""), HasSubstr("1234, refused"));
}

TEST(PeerTexts, RejectionsAndAbortsSayWhatToDo) {
    EXPECT_THAT(RejectText(1, 1, 7), HasSubstr("--called"));
    EXPECT_THAT(RejectText(1, 1, 3), HasSubstr("--calling"));
    EXPECT_THAT(RejectText(2, 3, 1), HasSubstr("busy"));
    EXPECT_THAT(RejectText(2, 1, 1), HasSubstr("may take it later"));
    EXPECT_THAT(RejectText(1, 9, 200), HasSubstr("source 9, reason 200"));
    EXPECT_THAT(AbortText(0, 5), HasSubstr("application aborted"));
    EXPECT_THAT(AbortText(2, 6), HasSubstr("value"));
    EXPECT_THAT(ContextText(77), HasSubstr("77"));
}

TEST(PeerTexts, WhatIsATitleAPortAUid) {
    EXPECT_EQ(WrongTitle("A B"), "");
    for (const char* wrong : {"", "  ", "12345678901234567", "A\\B", "A\nB", "\xC3\x84"})
        EXPECT_NE(WrongTitle(wrong), "") << wrong;
    unsigned int port = 0;
    EXPECT_TRUE(ParsePort("65535", port));
    for (const char* wrong : {"", "0", "65536", "-1", "104x", " 104"})
        EXPECT_FALSE(ParsePort(wrong, port)) << wrong;
    EXPECT_TRUE(IsUid("1.2.840.10008.1.2.00"));
    for (const char* wrong : {"", ".", "1.", ".1", "1..2", "1.2/3", "../1", "1.2 "})
        EXPECT_FALSE(IsUid(wrong)) << wrong;
    EXPECT_FALSE(IsUid(std::string(65, '1')));
    EXPECT_EQ((Peer{"::1", 104, "A", "B", 0, 0}.Name()), "A at [::1]:104");
}

} // namespace
} // namespace program
