/// @file VDicomFile.h
/// VDicomFile: the byte stream under every data set.
#pragma once

#include "VDicomTypes.h"

/// @name Open modes of VDicomFile
/// @{
constexpr unsigned short DICOM_FILE_CREATE = 1;         ///< created anew (truncated); without it the file must exist
constexpr unsigned short DICOM_FILE_READ = 2;           ///< read access
constexpr unsigned short DICOM_FILE_WRITE = 4;          ///< write access
constexpr unsigned short DICOM_FILE_TEMPORARY = 8;      ///< a generated name, prefix "DIC", in the folder given to Open
constexpr unsigned short DICOM_FILE_MEMORY = 16;        ///< a memory stream: no file
constexpr unsigned short DICOM_FILE_KERNEL = 32;        ///< accepted; files are opened the same way with and without it
constexpr unsigned short DICOM_FILE_SHARED = 64;        ///< part of the modes below; no effect of its own
constexpr unsigned short DICOM_FILE_DELETE = 128;       ///< deleted on close
constexpr unsigned short DICOM_FILE_MODE_LOAD = 98;     ///< what data sets load files with
constexpr unsigned short DICOM_FILE_MODE_SAVE = 101;    ///< what data sets save files with
constexpr unsigned short DICOM_FILE_MODE_MEMORY = 16;   ///< memory streams
constexpr unsigned short DICOM_FILE_MODE_SCRATCH = 207; ///< scratch streams
/// @}

namespace vdicom {
class Stream;
struct StreamAccess;
} // namespace vdicom

/// A byte stream over a file, a temporary file or memory.
///
/// Reading goes through a read-ahead buffer and writing through a write buffer, so small calls are cheap. Positions
/// and sizes are 64 bits wide inside; the classical calls are 32 bits wide and have 64-bit calls beside them. On
/// 32-bit builds a file of 4 GiB and more is refused by Open.
///
/// A temporary stream (mode bit 8) is kept in memory until it outgrows 1 MiB and takes a file only then; the file is
/// gone when the stream is closed or the process ends. A pipe that is opened for reading is read to its end into
/// such temporary storage first, so that it can be positioned like a file; one that nobody writes to is empty. Pipes
/// and devices other than disks can be written to from front to back; other devices and folders are refused.
///
/// One thread at a time may use a stream. Copying is not possible.
class VDICOM_API VDicomFile {
public:
    VDicomFile();
    /// Closes the stream.
    ~VDicomFile();
    VDicomFile(const VDicomFile&) = delete;
    VDicomFile& operator=(const VDicomFile&) = delete;

    /// Opens a stream; an open one is closed first.
    /// @param name the file; with DICOM_FILE_TEMPORARY the folder for it (null or empty: the platform's folder for
    ///             temporary files); with DICOM_FILE_MEMORY it is not used. UTF-8 on every platform.
    /// @param mode DICOM_FILE_... bits
    /// @return non-zero on success; GetError then is 0. A file opened for writing is not shared with other writers.
    unsigned int Open(const char* name, unsigned short mode);

    /// Writes what is buffered, closes the stream, and deletes the file when it was opened with DICOM_FILE_DELETE.
    /// @param discard non-zero: what is buffered is thrown away instead (a save that failed)
    /// @return non-zero when everything written has reached the file; a stream that is not open gives non-zero
    unsigned int Close(unsigned int discard = 0);

    /// Reads at the current position and advances it.
    /// @return non-zero only when all `size` bytes were read; otherwise the position does not move
    unsigned int Read(void* buffer, VDicomULong size);

    /// Writes at the current position and advances it. Writing 0 bytes to a temporary or memory stream cuts the
    /// stream off at the current position; to a file it does nothing.
    /// @return non-zero only when all bytes were taken; what is buffered is known to be written after Flush or Close
    unsigned int Write(const void* buffer, VDicomULong size);

    /// Writes what is buffered to the file. @return non-zero on success
    unsigned int Flush();

    /// Flush, and puts the bytes onto the disk, so that they outlast a power failure. The file's name does so after
    /// SyncFolder. Nothing more than Flush for memory, pipes and devices. @return non-zero on success
    unsigned int Sync();

    /// Puts the names in a folder onto the disk: files made, renamed and deleted there outlast a power failure.
    /// @param folder UTF-8 @param error receives the platform's number when it failed; may be null
    /// @return non-zero on success
    static unsigned int SyncFolder(const char* folder, int* error);

    /// Makes a file name of a text that a peer or a file chose (a UID, an AE title, a Patient ID ...). The name cannot
    /// lead out of a folder or to a device, and shows in a terminal as it is: letters, digits, '.', '-' and '_' stand
    /// as they are, every other byte, separators and control characters among them, as '%' and two hexadecimal digits;
    /// so does a dot at the start or the end ("..": "%2E%2E"), a hyphen at the start, and the first letter of a device
    /// ("NUL.txt": "%4EUL.txt"). Different texts have different names; where the file system does not tell capital
    /// letters from small ones, texts that differ in these alone share a file.
    /// @param length bytes of `text`; DICOM_UNDEFINED: it ends with a zero
    /// @param out receives the name and a zero, at most 241 bytes; may be null when size is 0
    /// @return the bytes needed with the zero (nothing is written when `size` is less); 0: there is no name for it, the
    ///         text being null, empty, or so long that the name would have more than 240 bytes
    static VDicomULong MakeFileName(const char* text, VDicomULong length, char* out, VDicomULong size);

    /// Moves the position. @param origin 0 from the start, 1 from the current position, 2 from the end
    /// @return non-zero on success; a place before the start or (when reading) behind the end is refused
    unsigned int Seek(VDicomLong offset, unsigned short origin);
    /// Seek for streams of any size.
    unsigned int Seek64(VDicomInt64 offset, unsigned short origin);

    /// The current position; DICOM_UNDEFINED when it needs more than 32 bits.
    VDicomULong Tell() const;
    /// The current position.
    VDicomUInt64 Tell64() const;
    /// The number of bytes in the stream, those not yet flushed included.
    VDicomUInt64 GetSize64() const;

    /// Adopts an open file handle (a descriptor, on Windows a HANDLE as returned by the system). The stream owns it
    /// from now on and closes it; reading and writing go on where the handle stood. @return non-zero on success;
    /// otherwise the handle stays the caller's
    unsigned int SetHandle(std::intptr_t handle, unsigned short mode);

    /// Attaches memory to a stream opened with DICOM_FILE_MEMORY.
    /// @param buffer `size` bytes, or null for an empty stream
    /// @param attach non-zero: the caller's memory is used in place for reading; it stays the caller's and must
    ///               outlive the stream's use of it, and the first write copies it. Zero: the bytes are copied at once.
    /// @return non-zero on success; 0 when the stream is no memory stream, `buffer` is null with a size, or memory
    ///         runs out
    unsigned int SetMemoryBuffer(const unsigned char* buffer, VDicomULong size, unsigned int attach);

    /// The bytes of a memory stream, valid until the next write or Close; null for other streams or an empty one.
    /// Memory streams grow by doubling as they are written to. @param size receives the number of bytes; may be null
    const unsigned char* GetMemoryBuffer(VDicomUInt64* size) const;

    /// Non-zero when the stream is open.
    unsigned int IsOpen() const;

    /// The platform's number (errno, GetLastError) for the last Open, Read, Write, Flush or Close that failed; 0 when
    /// there was none or the failure has no number (a short file).
    int GetError() const;

private:
    friend struct vdicom::StreamAccess;
    vdicom::Stream* m_pStream;
};
