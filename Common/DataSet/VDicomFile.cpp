#include "VDicomFile.h"

#include "FileName.h"
#include "Guarded.h"
#include "Stream.h"
#include "StreamAccess.h"

#include <cstring>
#include <new>

using vdicom::Stream;

// No exception leaves the library: where memory for a name runs out, the stream does not open.

VDicomFile::VDicomFile() : m_pStream(nullptr) {}

VDicomFile::~VDicomFile() {
    Close(0);
    delete m_pStream;
}

unsigned int VDicomFile::Open(const char* name, unsigned short mode) {
    try {
        if (m_pStream == nullptr)
            m_pStream = new Stream;
        return m_pStream->Open(name, mode) ? 1 : 0;
    } catch (const std::bad_alloc&) {
        Close(1);
        return 0;
    }
}

unsigned int VDicomFile::Close(unsigned int discard) {
    return m_pStream == nullptr || m_pStream->Close(discard != 0) ? 1 : 0;
}

unsigned int VDicomFile::Read(void* buffer, VDicomULong size) {
    return m_pStream != nullptr && m_pStream->Read(buffer, size) ? 1 : 0;
}

unsigned int VDicomFile::Write(const void* buffer, VDicomULong size) {
    try {
        return m_pStream != nullptr && m_pStream->Write(buffer, size) ? 1 : 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

unsigned int VDicomFile::Flush() { return m_pStream != nullptr && m_pStream->IsOpen() && m_pStream->Flush() ? 1 : 0; }

unsigned int VDicomFile::Sync() { return m_pStream != nullptr && m_pStream->IsOpen() && m_pStream->Sync() ? 1 : 0; }

unsigned int VDicomFile::SyncFolder(const char* folder, int* error) {
    const int noMemory = vdicom::platform::NumberOf(vdicom::platform::FileRefusal::memory);
    const int number = vdicom::Guarded(noMemory, [folder] { return vdicom::platform::SyncFolder(folder); });
    if (error != nullptr)
        *error = number;
    return number == 0 ? 1 : 0;
}

VDicomULong VDicomFile::MakeFileName(const char* text, VDicomULong length, char* out, VDicomULong size) {
    if (text == nullptr)
        return 0;
    char name[vdicom::kLongestFileName];
    const std::size_t used = vdicom::MakeFileName({text, length == DICOM_UNDEFINED ? std::strlen(text) : length}, name);
    if (used == 0)
        return 0;
    if (out != nullptr && used < size) {
        std::memcpy(out, name, used);
        out[used] = '\0';
    }
    return static_cast<VDicomULong>(used + 1);
}

unsigned int VDicomFile::Seek(VDicomLong offset, unsigned short origin) { return Seek64(offset, origin); }

unsigned int VDicomFile::Seek64(VDicomInt64 offset, unsigned short origin) {
    return m_pStream != nullptr && m_pStream->Seek(offset, origin) ? 1 : 0;
}

VDicomULong VDicomFile::Tell() const {
    const VDicomUInt64 position = Tell64();
    return position < DICOM_UNDEFINED ? static_cast<VDicomULong>(position) : DICOM_UNDEFINED;
}

VDicomUInt64 VDicomFile::Tell64() const { return m_pStream == nullptr ? 0 : m_pStream->Position(); }

VDicomUInt64 VDicomFile::GetSize64() const { return m_pStream == nullptr ? 0 : m_pStream->Size(); }

unsigned int VDicomFile::SetHandle(std::intptr_t handle, unsigned short mode) {
    try {
        if (m_pStream == nullptr)
            m_pStream = new Stream;
        return m_pStream->Adopt(handle, mode) ? 1 : 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

unsigned int VDicomFile::SetMemoryBuffer(const unsigned char* buffer, VDicomULong size, unsigned int attach) {
    return m_pStream != nullptr && m_pStream->SetMemory(buffer, size, attach != 0) ? 1 : 0;
}

const unsigned char* VDicomFile::GetMemoryBuffer(VDicomUInt64* size) const {
    const vdicom::StreamMemory* memory = m_pStream == nullptr ? nullptr : m_pStream->Memory();
    const std::size_t bytes = memory == nullptr ? 0 : memory->Size();
    if (size != nullptr)
        *size = bytes;
    return bytes == 0 ? nullptr : memory->Data();
}

unsigned int VDicomFile::IsOpen() const { return m_pStream != nullptr && m_pStream->IsOpen() ? 1 : 0; }

int VDicomFile::GetError() const { return m_pStream == nullptr ? 0 : m_pStream->Error(); }

namespace vdicom {

ByteSpan StreamAccess::View(VDicomFile& file, VDicomUInt64 position, std::size_t wanted) {
    return file.m_pStream == nullptr ? ByteSpan{} : file.m_pStream->View(position, wanted);
}

bool StreamAccess::ReadAt(VDicomFile& file, VDicomUInt64 position, void* buffer, std::size_t size) {
    return file.m_pStream != nullptr && file.m_pStream->ReadAt(position, buffer, size);
}

bool StreamAccess::Append(VDicomFile& file, const void* buffer, std::size_t size, VDicomUInt64& position) {
    return file.m_pStream != nullptr && file.m_pStream->Append(buffer, size, position);
}

bool StreamAccess::CopyRange(VDicomFile& target, VDicomFile& source, VDicomUInt64 position, VDicomUInt64 size,
                             VDicomUInt64& done) {
    done = 0;
    if (target.m_pStream != nullptr && target.m_pStream->ranges != nullptr) {
        target.m_pStream->ranges->push_back({target.Tell64(), &source, position, size});
        done = size;
        return true;
    }
    return target.m_pStream == nullptr || source.m_pStream == nullptr ||
           target.m_pStream->CopyRange(*source.m_pStream, position, size, done);
}

void StreamAccess::CollectRanges(VDicomFile& file, std::vector<StreamRange>* ranges) {
    if (file.m_pStream != nullptr)
        file.m_pStream->ranges = ranges;
}

VDicomUInt64 StreamAccess::Size(const VDicomFile& file) { return file.GetSize64(); }

const char* StreamAccess::Path(const VDicomFile& file) {
    return file.m_pStream == nullptr ? "" : file.m_pStream->Path().c_str();
}

bool StreamAccess::IsFile(const VDicomFile& file, const char* path) {
    return file.m_pStream != nullptr && file.m_pStream->IsFileAt(path);
}

bool StreamAccess::OpenReplacement(VDicomFile& file, const char* path) {
    try {
        if (file.m_pStream == nullptr)
            file.m_pStream = new Stream;
        return file.m_pStream->OpenReplacement(path);
    } catch (const std::bad_alloc&) {
        file.Close(1);
        return false;
    }
}

bool StreamAccess::CommitReplacement(VDicomFile& file) {
    try {
        return file.m_pStream != nullptr && file.m_pStream->CommitReplacement();
    } catch (const std::bad_alloc&) {
        file.Close(1);
        return false;
    }
}

} // namespace vdicom
