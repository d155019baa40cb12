/// @file Reader.h
/// Turns the headers of a stream into elements. Keeps its own stack of open levels, so that nesting is a number to
/// check and never call stack to lose.
#pragma once

#include "DataSetState.h"
#include "ElementHeader.h"

#include <string>
#include <vector>

namespace vdicom {

class Reader {
public:
    explicit Reader(DataSetState& state);

    /// Loads a whole stream: preamble, file meta information, data set. @param given encoding of a stream without
    /// preamble when it is known, else null @return a result code
    unsigned int Load(VDicomFile& stream, unsigned short loadFlags, const Encoding* given);

    /// Reads elements of one encoding into `parent` from `position` on, at most up to `end`. Tells where it stopped.
    unsigned int ReadLevel(VDicomFile& stream, DICOMELEMENT* parent, Encoding encoding, VDicomUInt64 position,
                           VDicomUInt64 end, VDicomUInt64& stopped);

private:
    enum class Kind { top, sequence, item, fragments };

    /// A level that is open.
    struct Level {
        DICOMELEMENT* parent; ///< null: top level
        VDicomUInt64 end;     ///< where it ends at the latest
        Encoding encoding;
        Kind kind;
        bool defined;        ///< ended by its length, not by a delimiter
        VDicomULong lastTag; ///< of the element read last
    };

    unsigned int Run();
    unsigned int StepHeader();
    unsigned int EndOfStream();
    unsigned int EndOfOverrun();
    void NoteOverrun(VDicomULong tag, std::string text);
    void LeaveMeta();
    unsigned int ReadHeader(ElementHeader& header);
    bool HandleItem(const ElementHeader& header);
    bool HandleDelimiter(const ElementHeader& header);
    bool HandleMisplaced(const ElementHeader& header);
    unsigned int AddElement(ElementHeader header);
    unsigned int AddUndefined(DICOMELEMENT* e, const ElementHeader& header, VDicomUInt64 value);
    bool BeginsWithItem(VDicomUInt64 position, VDicomUInt64 end, Encoding encoding);
    DICOMELEMENT* Append(const ElementHeader& header, unsigned short vr, bool undefined);
    void SetPiece(DICOMELEMENT* e, VDicomUInt64 position, VDicomULong length);
    unsigned int Push(DICOMELEMENT* parent, Kind kind, VDicomUInt64 end, bool defined, Encoding encoding);
    void Pop() { m_levels.pop_back(); }
    void CheckOrder(const ElementHeader& header);
    unsigned short ResolveVR(const ElementHeader& header, bool undefined);
    void TakeTransferSyntax(const DICOMELEMENT* e);
    unsigned int Inflate();
    void SetEncoding(Encoding encoding);
    unsigned int Fail(unsigned int code, VDicomULong tag, std::string text);
    void Note(unsigned int code, VDicomULong tag, std::string text);
    Level& Top() { return m_levels.back(); }

    DataSetState& m_state;
    VDicomFile* m_stream = nullptr;
    VDicomUInt64 m_position = 0; ///< where the next header stands
    VDicomUInt64 m_size = 0;     ///< of the stream
    std::size_t m_base = 0;      ///< levels of the tree above the first of m_levels
    std::vector<Level> m_levels;
    TransferSyntax m_syntax{"", {}, 0, false, false};
    bool m_meta = false;    ///< reading group 0002, or it may come
    bool m_loading = false; ///< a whole stream: group 0002 and transfer syntaxes mean something
    bool m_named = false;   ///< (0002,0010) was there
    bool m_overrun = false; ///< a length ran past the end of its parent
    VDicomUInt64 m_overrunPosition = 0;
    VDicomULong m_overrunTag = 0; ///< of the first that did
    VDicomUInt64 m_metaEnd = 0;   ///< where (0002,0000) says that the group ends; 0: it says nothing
    /// The private block looked at last, since a block's elements follow each other.
    struct {
        const DICOMELEMENT* parent = nullptr;
        VDicomULong block = 0;
        std::string creator;
    } m_private;
};

} // namespace vdicom
