#include "CurrentRows.h"
#include "FactRows.h"
#include "RandomUID.h"
#include "VDicomTag.h"
#include "VDicomUID.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr VDicomULong n = DICOM_UNDEFINED;

std::string VRText(unsigned short vr, unsigned short other) {
    std::string text = {static_cast<char>(vr >> 8), static_cast<char>(vr & 0xFF)};
    if (other != 0)
        text += std::string{'/', static_cast<char>(other >> 8), static_cast<char>(other & 0xFF)};
    return text;
}

/// All of a row but its texts' addresses.
std::string Show(const DICOMCURRENTTAG& row) {
    std::ostringstream text;
    text << std::hex << std::uppercase << row.nCode << ' ' << row.nMask << std::dec << ' '
         << VRText(row.nVR, row.nVROther) << ' ' << row.nMinVM << '-';
    if (row.nMaxVM == n)
        text << 'n';
    else
        text << row.nMaxVM;
    text << '%' << row.nDivideVM << ' ' << row.pszName << '|' << row.pszKeyword << '|' << row.bRetired;
    return text.str();
}

std::string Current(VDicomULong tag) {
    DICOMCURRENTTAG row;
    return VDicomTag::FindCurrent(tag, &row) == 0 ? "none" : Show(row);
}

std::string Keyword(const char* keyword) {
    DICOMCURRENTTAG row;
    return VDicomTag::FindKeyword(keyword, &row) == 0 ? "none" : Show(row);
}

std::string Private(const std::string& creator, VDicomULong tag) {
    DICOMCURRENTTAG row;
    if (VDicomTag::FindPrivate(creator.data(), static_cast<VDicomULong>(creator.size()), tag, &row) == 0)
        return "none";
    EXPECT_EQ(row.nCode, tag & row.nMask);
    return Show(row);
}

TEST(CurrentTags, AreFoundByTagAndKeyword) {
    EXPECT_EQ("100010 FFFFFFFF PN 1-1%1 Patient's Name|PatientName|0", Current(0x00100010));
    EXPECT_EQ(Current(0x00100010), Keyword("PatientName"));
    EXPECT_EQ("280106 FFFFFFFF US/SS 1-1%1 Smallest Image Pixel Value|SmallestImagePixelValue|0", Current(0x00280106));
    EXPECT_EQ("281200 FFFFFFFF US/SS 1-n%1 Gray Lookup Table Data|GrayLookupTableData|1", Current(0x00281200))
        << "of three VRs the first two are kept";
    EXPECT_EQ("7FE00010 FFFFFFFF OB/OW 1-1%1 Pixel Data|PixelData|0", Current(0x7FE00010))
        << "a row of its own goes before a range that would match too";
    EXPECT_EQ("7FE00009 FFFFFFFF OD 1-1%1 Double Float Pixel Data|DoubleFloatPixelData|0", Current(0x7FE00009));
    EXPECT_EQ("FFFEE000 FFFFFFFF OB 1-1%1 Item|Item|0", Current(0xFFFEE000));
    EXPECT_EQ("40A0B0 FFFFFFFF US 2-n%2 Referenced Waveform Channels|ReferencedWaveformChannels|0",
              Current(0x0040A0B0));
    EXPECT_EQ("80202 FFFFFFFF OB 1-1%1 Retired-blank||1", Current(0x00080202)) << "a row without keyword";

    EXPECT_EQ("60000050 FF00FFFF SS 2-2%2 Overlay Origin|OverlayOrigin|0", Current(0x601E0050));
    EXPECT_EQ("203100 FFFFFF00 CS 1-n%1 Source Image IDs|SourceImageIDs|1", Current(0x00203142));
    EXPECT_EQ("10000000 FFFF000F US 3-3%3 Escape Triplet|EscapeTriplet|1", Current(0x1000ABC0));
    EXPECT_EQ("none", Current(0x1000ABC9));
    EXPECT_EQ("10100000 FFFF0000 US 1-n%1 Zonal Map|ZonalMap|1", Current(0x1010FFFF));
    EXPECT_EQ("none", Current(0x60010050)) << "an odd group is private, never a repeating group";
    EXPECT_EQ("none", Current(0x00100011));
    EXPECT_EQ("none", Keyword("patientName"));
    EXPECT_EQ("none", Keyword("PatientNam"));
    EXPECT_EQ("none", Keyword(""));
    EXPECT_EQ("none", Keyword(nullptr));
    EXPECT_EQ(1U, VDicomTag::FindCurrent(0x00100010, nullptr)) << "asking without wanting the row";
    EXPECT_EQ(0U, VDicomTag::GetCurrent(5277, nullptr));
    EXPECT_EQ(0U, VDicomTag::GetCurrent(0xFFFFFFFF, nullptr));
}

TEST(CurrentTags, EveryRowIsFoundByItsOwnKeys) {
    std::set<std::string> keywords;
    VDicomULong count = 0;
    DICOMCURRENTTAG row;
    for (; VDicomTag::GetCurrent(count, &row) != 0; ++count) {
        // A range at its last place, in an even group: at its first one a row of its own may stand before it.
        ASSERT_EQ(Show(row), Current(row.nCode | (~row.nMask & 0xFFFEFFFF)));
        ASSERT_NE('\0', row.pszName[0]);
        if (row.pszKeyword[0] == '\0')
            continue;
        ASSERT_EQ(Show(row), Keyword(row.pszKeyword));
        EXPECT_TRUE(keywords.insert(row.pszKeyword).second);
    }
    EXPECT_EQ(5277U, count);
}

TEST(CurrentUIDs, AreFoundAndListed) {
    DICOMCURRENTUID row;
    VDicomULong count = 0;
    for (; VDicomUID::GetCurrent(count, &row) != 0; ++count) {
        DICOMCURRENTUID found;
        ASSERT_EQ(1U, VDicomUID::FindCurrent(std::string(row.pszCode).c_str(), &found));
        EXPECT_EQ(row.pszCode, found.pszCode);
        EXPECT_EQ(row.pszName, found.pszName);
    }
    EXPECT_EQ(490U, count);
    ASSERT_EQ(1U, VDicomUID::FindCurrent("1.2.840.10008.1.2.4.201", &row));
    EXPECT_STREQ("High-Throughput JPEG 2000 Image Compression (Lossless Only)", row.pszName);
    EXPECT_STREQ("Transfer Syntax", row.pszType);
    EXPECT_STREQ("HTJ2KLossless", row.pszKeyword);
    EXPECT_EQ(0U, row.bRetired);
    ASSERT_EQ(1U, VDicomUID::FindCurrent("1.2.840.10008.1.2.2", &row));
    EXPECT_EQ(1U, row.bRetired);
    EXPECT_EQ(0U, VDicomUID::FindCurrent("1.2.840.10008.1.2.4.201 ", &row));
    EXPECT_EQ(0U, VDicomUID::FindCurrent("", &row));
    EXPECT_EQ(0U, VDicomUID::FindCurrent(nullptr, &row));
}

TEST(PrivateTags, AreFoundByCreatorWhateverTheBlock) {
    EXPECT_EQ("290010 FFFF00FF OB 1-1%1 CSA Image Header Info||0", Private("SIEMENS CSA HEADER", 0x00291010));
    EXPECT_EQ(Private("SIEMENS CSA HEADER", 0x00291010), Private("SIEMENS CSA HEADER  ", 0x0029E110));
    EXPECT_EQ(Private("SIEMENS CSA HEADER", 0x00291010), Private(std::string("SIEMENS CSA HEADER\0", 19), 0x00291110));
    EXPECT_EQ("none", Private("SIEMENS CSA HEADER", 0x00191010));
    EXPECT_EQ("none", Private(" SIEMENS CSA HEADER", 0x00291010));
    EXPECT_EQ("none", Private("SIEMENS CSA HEADE", 0x00291010));
    EXPECT_EQ("none", Private("", 0x00291010));
    EXPECT_EQ(0U, VDicomTag::FindPrivate(nullptr, 5, 0x00291010, nullptr));
    EXPECT_EQ(1U, VDicomTag::FindPrivate("SIEMENS CSA HEADER and more", 18, 0x00291010, nullptr))
        << "the text ends by its length, not by a zero";

    // Elements written with a block byte, and those of two rows that differ in it: the row that names them counts.
    EXPECT_EQ("1F90010 FFFF00FF LO 1-1%1 Dose Right Noise||0", Private("ELSCINT1", 0x01F91010));
    EXPECT_EQ("1F10002 FFFF00FF CS 1-1%1 Resolution||0", Private("ELSCINT1", 0x01F11102));
    EXPECT_EQ("1F10026 FFFF00FF DS 1-1%1 Pitch||0", Private("ELSCINT1", 0x01F11026));
    // Repeating groups, private creators and whole groups.
    EXPECT_EQ("600000C0 FF0000FF SQ 1-1%1 UIN Overlay Sequence||0", Private("PAPYRUS 3.0", 0x600310C0));
    EXPECT_EQ("190000 FFFFFF00 LO 1-1%1 Private Element Creator||0", Private("GEMS_ACQU_01", 0x00190010));
    EXPECT_EQ("none", Private("GEMS_ACQU_01", 0x001910FC)) << "an unknown element is no private creator";
    EXPECT_EQ("110000 FFFF0000 UN 1-1%1 Private Segmentation Data||0", Private("BioPri3D", 0x00111077));
    EXPECT_EQ("70190080 FFFF00FF OB/OW 1-1%1 Original image data on area of original LR mark||0",
              Private("TOSHIBA_MEC_OT3", 0x70191080));
    EXPECT_NE(std::string::npos, Private("FDMS 1.0", 0x00251034).find("tan \xCE\xB8")) << "names are UTF-8";
    EXPECT_NE("none", Private("GE ??? From Adantage Review CS", 0x00191030));
}

TEST(PrivateTags, EveryRowIsFoundByItsOwnKey) {
    for (std::size_t i = 0; i < vdicom::kPrivateTagCount; ++i) {
        const vdicom::PrivateTagRow& row = vdicom::kPrivateTagRows[i];
        const char* creator = vdicom::kPrivateTexts + vdicom::kPrivateCreators[row.creator];
        VDicomULong tag = VDicomTagCode(row.group, 0x1000U | row.element);
        if (row.form == static_cast<unsigned char>(vdicom::PrivateForm::creators))
            tag = VDicomTagCode(row.group, 0xFE);
        if (row.form == static_cast<unsigned char>(vdicom::PrivateForm::group))
            tag |= 0xEE;
        DICOMCURRENTTAG found;
        ASSERT_EQ(1U, VDicomTag::FindPrivate(creator, static_cast<VDicomULong>(std::strlen(creator)), tag, &found))
            << creator << ' ' << std::hex << tag;
        EXPECT_EQ(vdicom::kPrivateTexts + row.text, found.pszName);
    }
}

// The tables say what the facts say, read here by other code than the one that made them.
class Facts : public testing::Test {
protected:
    using Row = facts::Row;
    /// "US or SS", "OB_OW", "NONE" as Show has them.
    static std::string VR(const std::string& text) {
        if (text == "NONE")
            return "OB";
        std::string vr = text.substr(0, 2);
        if (text.size() > 2)
            vr += "/" + (text[2] == '_' ? text.substr(3, 2) : text.substr(6, 2));
        return vr;
    }
    static std::string VM(const std::string& text) {
        const std::size_t hyphen = text.find('-');
        if (hyphen == std::string::npos)
            return text + "-" + text + "%" + text;
        const std::string factor = text.back() == 'n' ? text.substr(hyphen + 1, text.size() - hyphen - 2) : "";
        return text.substr(0, hyphen) + "-" + (text.back() == 'n' ? "n" : text.substr(hyphen + 1)) + "%" +
               (factor.empty() ? "1" : factor);
    }
    static unsigned long Hex(const std::string& text) { return std::stoul(text, nullptr, 16); }
};

TEST_F(Facts, OfTheBuiltInTablesAreTheirRowsInOrder) {
    const auto tags = facts::Read("tags.tsv");
    const auto uids = facts::Read("uids.tsv");
    if (tags.empty() || uids.empty())
        GTEST_SKIP() << "no facts below " << VDICOM_SHARED;
    DICOMTAG* tag = VDicomTag::GetFirst();
    for (const Row& row : tags) {
        ASSERT_NE(nullptr, tag);
        ASSERT_EQ(Hex(row[0]), tag->nCode + 0UL);
        ASSERT_EQ(Hex(row[1]), tag->nMask + 0UL);
        ASSERT_EQ(row[2], tag->pszName);
        ASSERT_EQ(row[3], VRText(tag->nVR, 0));
        ASSERT_EQ(row[4], std::to_string(tag->nMinVM));
        ASSERT_EQ(row[5] == "FFFFFFFF" || row[5] == "n" ? n : std::stoul(row[5]), tag->nMaxVM + 0UL);
        ASSERT_EQ(row[6], std::to_string(tag->nDivideVM));
        tag = VDicomTag::GetNext(tag);
    }
    EXPECT_EQ(nullptr, tag);
    DICOMUID* uid = VDicomUID::GetFirst();
    for (const Row& row : uids) {
        ASSERT_NE(nullptr, uid);
        ASSERT_EQ(row, (Row{uid->pszCode, std::to_string(uid->nType), uid->pszName}));
        uid = VDicomUID::GetNext(uid);
    }
    EXPECT_EQ(nullptr, uid);
}

TEST_F(Facts, OfTodaysAttributesAreInTheTable) {
    const auto rows = facts::Read("current/tags.tsv");
    if (rows.empty())
        GTEST_SKIP() << "no facts below " << VDICOM_SHARED;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        std::ostringstream expected;
        expected << std::hex << std::uppercase << Hex(row[0]) << ' ' << Hex(row[1]) << ' ' << VR(row[2]) << ' '
                 << VM(row[3]) << ' ' << row[4] << '|' << row[6] << '|' << row[5];
        DICOMCURRENTTAG found;
        ASSERT_EQ(1U, VDicomTag::GetCurrent(static_cast<VDicomULong>(i), &found));
        ASSERT_EQ(expected.str(), Show(found));
    }
    EXPECT_EQ(5277U, rows.size());
}

TEST_F(Facts, OfTodaysUIDsAreInTheTable) {
    const auto rows = facts::Read("current/uids.tsv");
    if (rows.empty())
        GTEST_SKIP() << "no facts below " << VDICOM_SHARED;
    for (const Row& row : rows) {
        DICOMCURRENTUID found;
        ASSERT_EQ(1U, VDicomUID::FindCurrent(row[0].c_str(), &found)) << row[0];
        EXPECT_EQ(row,
                  (Row{found.pszCode, found.pszName, found.pszType, std::to_string(found.bRetired), found.pszKeyword}));
    }
}

TEST_F(Facts, OfPrivateAttributesAreInTheTable) {
    const auto rows = facts::Read("current/private_tags.tsv");
    if (rows.empty())
        GTEST_SKIP() << "no facts below " << VDICOM_SHARED;
    // Rows that differ in the block byte alone stand for the same attribute.
    std::map<std::tuple<std::string, std::string, unsigned long>, std::set<std::string>> possible;
    std::set<std::string> creators;
    for (const Row& row : rows) {
        creators.insert(row[0]);
        std::string group = row[1];
        std::replace(group.begin(), group.end(), 'X', '0');
        // Rows of a whole group or of its creators are asked for where no element has a row.
        const unsigned long element = row[2] != "XX" ? Hex(row[2]) & 0xFF : 0x100;
        possible[{row[0], group, element}].insert(VR(row[3]) + " " + VM(row[4]) + " " + row[5]);
    }
    for (const auto& [key, answers] : possible) {
        const auto& [creator, group, element] = key;
        const VDicomULong block = element == 0x100 ? 0xFF : 0x4200 | static_cast<VDicomULong>(element);
        const std::string shown = Private(creator, VDicomTagCode(static_cast<unsigned int>(Hex(group)), block));
        const std::string answer = shown.substr(shown.find(' ', shown.find(' ') + 1) + 1);
        EXPECT_EQ(1U, answers.count(answer.substr(0, answer.find('|')))) << creator << ' ' << group << ' ' << shown;
    }
    EXPECT_EQ(439U, creators.size());
}

TEST(GeneratedUIDs, AreUUIDsInDecimal) {
    std::set<std::string> seen;
    for (int i = 0; i < 500; ++i) {
        char uid[65];
        std::memset(uid, '#', sizeof uid);
        ASSERT_EQ(1U, VDicomUID::Generate(uid));
        const std::string text = uid;
        ASSERT_EQ(0U, text.find("2.25."));
        ASSERT_LE(text.size(), 44U);
        ASSERT_GT(text.size(), 20U);
        ASSERT_EQ(std::string::npos, text.find_first_not_of("0123456789", 5));
        ASSERT_NE('0', text[5]);
        EXPECT_TRUE(seen.insert(text).second);
    }
    EXPECT_EQ(0U, VDicomUID::Generate(nullptr));

    char uid[65];
    vdicom::WriteNumberUID({0, 0, 0, 0}, uid);
    EXPECT_STREQ("2.25.0", uid);
    vdicom::WriteNumberUID({n, n, n, n}, uid);
    EXPECT_STREQ("2.25.340282366920938463463374607431768211455", uid);
    vdicom::WriteNumberUID({0xF81D4FAE, 0x7DEC11D0, 0xA76500A0, 0xC91E6BF6}, uid); // the example of PS3.5 B.2
    EXPECT_STREQ("2.25.329800735698586629295641978511506172918", uid);
}

} // namespace
