// Objects of a retrieval that are stored again while it is under way: none is left out without a word.
#include "serve/SubOperations.h"

#include "../../archive/TestObjects.h"

#include <gtest/gtest.h>

namespace {

using namespace archive;
using namespace program;

class Channel : public StoreChannel {
public:
    State GetState() override { return State::ready; }
    const std::vector<StoreContext>& Contexts() override { return m_contexts; }
    unsigned int Store(unsigned char, unsigned short, const RetrievedObject& object, VDicomDS& ds) override {
        sent += Text(ds, 0x00081030) + ' ';
        return object.instanceUid == Text(ds, tag::kInstance) ? DICOM_OK : DICOM_ERROR_PARAMETER;
    }
    unsigned short NextMessageId() override { return ++m_message; }
    bool HasSent() override { return true; }
    std::string sent;

private:
    std::vector<StoreContext> m_contexts{{1, kCt, {kExplicit}}};
    unsigned short m_message = 0;
};

TEST(SubOperations, ObjectsThatAreStoredAgainMeanwhile) {
    TestFolder folder;
    Archive archive({folder.File(""), "ARCHIVE"});
    for (const char* uid : {"1.5", "1.6", "1.7"})
        ASSERT_EQ(Store(archive, uid, {{0x00081030, "first"}}), 0);
    VDicomDS identifier;
    Set(identifier, {{tag::kLevel, "STUDY"}, {tag::kStudy, "1.1"}});
    std::unique_ptr<Retrieval> retrieval;
    ASSERT_TRUE(archive.StartRetrieval(identifier, {}, retrieval).IsSuccess());
    SubOperations objects(std::move(retrieval));
    Channel channel;
    // Alike between Next and Send, when the association is made; and before its turn, of another class.
    ASSERT_NE(objects.Next(), nullptr);
    ASSERT_EQ(Store(archive, "1.5", {{0x00081030, "again"}}), 0);
    ASSERT_EQ(Store(archive, "1.6", {{tag::kClass, kMr}}), 0);
    ASSERT_TRUE(archive.Store().Settle().IsSuccess());
    for (unsigned short message = 1; objects.Next() != nullptr; ++message) {
        objects.Send(channel);
        ASSERT_TRUE(objects.OnStored(message, 0));
        objects.TakeAnswer();
    }
    EXPECT_EQ(channel.sent, "again first ");
    EXPECT_EQ(objects.Completed(), 2);
    EXPECT_EQ(objects.Failed(), 1);
    EXPECT_EQ(objects.Remaining(), 0);
    EXPECT_EQ(objects.FinalStatus(0xA702), 0xB000);
    VDicomDS list;
    ASSERT_NE(objects.FailedList(list), nullptr);
    EXPECT_EQ(Text(list, 0x00080058), "1.6");
}

} // namespace
