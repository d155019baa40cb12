/// @file HexBytes.h
/// Bytes written as text, and data sets written as text, for tests.
#pragma once

#include "VDicomDS.h"

#include <cctype>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace support {

using Bytes = std::vector<unsigned char>;

/// "54 00 0015 'DICM'": hexadecimal digits with blanks between them as you like, and texts in quotes.
inline Bytes operator""_bytes(const char* text, std::size_t size) {
    Bytes bytes;
    int high = -1;
    bool quoted = false;
    for (const char c : std::string_view(text, size)) {
        if (c == '\'') {
            quoted = !quoted;
        } else if (quoted) {
            bytes.push_back(static_cast<unsigned char>(c));
        } else if (std::isxdigit(static_cast<unsigned char>(c)) != 0) {
            const int digit = std::isdigit(static_cast<unsigned char>(c)) != 0 ? c - '0' : (c | 0x20) - 'a' + 10;
            if (high >= 0)
                bytes.push_back(static_cast<unsigned char>(high * 16 + digit));
            high = high >= 0 ? -1 : digit;
        }
    }
    return bytes;
}

inline Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// A Part 10 file: preamble, "DICM", group 0002 with the transfer syntax alone, then `dataSet`.
inline Bytes Part10(std::string transferSyntax, const Bytes& dataSet) {
    if ((transferSyntax.size() & 1) != 0)
        transferSyntax.push_back('\0');
    Bytes bytes(128, 0);
    bytes = bytes + "'DICM' 0200 1000 'UI'"_bytes;
    bytes.push_back(static_cast<unsigned char>(transferSyntax.size()));
    bytes.push_back(0);
    bytes.insert(bytes.end(), transferSyntax.begin(), transferSyntax.end());
    return bytes + dataSet;
}

constexpr char kImplicit[] = "1.2.840.10008.1.2";
constexpr char kExplicit[] = "1.2.840.10008.1.2.1";
constexpr char kBig[] = "1.2.840.10008.1.2.2";
constexpr char kDeflated[] = "1.2.840.10008.1.2.1.99";
constexpr char kJpegLossless[] = "1.2.840.10008.1.2.4.70";

/// One line per element: "  (gggg,eeee) VR length: hexadecimal value in host order", indented by level.
inline std::string Describe(VDicomDS& dataSet, VDicomULong from = 0) {
    std::string text;
    char line[64];
    for (DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 0, 1); e != nullptr; e = dataSet.GetNextElement(e, 0, 1)) {
        if (dataSet.GetRootElement(e)->nTag < from)
            continue;
        text.append(2 * dataSet.GetLevelElement(e), ' ');
        std::snprintf(line, sizeof line, "(%04X,%04X) %c%c ", static_cast<unsigned int>(e->nTag >> 16),
                      static_cast<unsigned int>(e->nTag & 0xFFFF), e->nVR >> 8 ? e->nVR >> 8 : '-',
                      e->nVR & 0xFF ? e->nVR & 0xFF : '-');
        text += line;
        if (e->nLength == DICOM_UNDEFINED) {
            text += "u\n";
            continue;
        }
        std::snprintf(line, sizeof line, "%u:", static_cast<unsigned int>(e->nLength));
        text += line;
        Bytes value(e->nLength);
        if (dataSet.GetBinaryValue(e, value.data(), e->nLength) == 0 && e->nLength != 0)
            text += " unreadable";
        for (const unsigned char byte : value) {
            std::snprintf(line, sizeof line, " %02X", byte);
            text += line;
        }
        text += "\n";
    }
    return text;
}

/// Loads a copy of the bytes, which is kept until the same data set is loaded again.
inline unsigned int Load(VDicomDS& dataSet, const Bytes& bytes, unsigned short flags = 0) {
    static std::map<const VDicomDS*, Bytes> kept;
    Bytes copy(bytes);
    const unsigned int code = dataSet.LoadDSMemory(copy.data(), static_cast<VDicomULong>(copy.size()), flags);
    kept[&dataSet].swap(copy);
    return code;
}

/// What SaveDS writes, through a memory stream; empty when it fails.
inline Bytes Save(VDicomDS& dataSet, unsigned short flags, unsigned int* code = nullptr) {
    VDicomFile stream;
    stream.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    const unsigned int result = dataSet.SaveDS(&stream, flags);
    if (code != nullptr)
        *code = result;
    VDicomUInt64 size = 0;
    const unsigned char* bytes = stream.GetMemoryBuffer(&size);
    return result != DICOM_OK || bytes == nullptr ? Bytes() : Bytes(bytes, bytes + size);
}

/// The codes of all faults of the last load.
inline std::vector<unsigned int> Faults(const VDicomDS& dataSet) {
    std::vector<unsigned int> codes;
    DICOMFAULT fault;
    for (VDicomULong i = 0; dataSet.GetFault(i, &fault) != 0; ++i)
        codes.push_back(fault.nCode);
    return codes;
}

} // namespace support
