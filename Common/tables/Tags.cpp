// Made by tools/tables/make_tables.py; change the facts, not this file.
// clang-format off
//
// The built-in data dictionary.

#include "BuiltInRows.h"

#pragma GCC diagnostic ignored "-Woverlength-strings"

namespace vdicom {

// tag, mask, name, VR, smallest and largest value multiplicity, divider
#define ROWS(ROW) \
    ROW(0x00000000, 0xFFFFFFFF, "Command Group Length", UL, 1, 1, 1) \
    ROW(0x00000002, 0xFFFFFFFF, "Affected SOP Class UID", UI, 1, 1, 1) \
    ROW(0x00000003, 0xFFFFFFFF, "Requested SOP Class UID", UI, 1, 1, 1) \
    ROW(0x00000100, 0xFFFFFFFF, "Command Field", US, 1, 1, 1) \
    ROW(0x00000110, 0xFFFFFFFF, "Message ID", US, 1, 1, 1) \
    ROW(0x00000120, 0xFFFFFFFF, "Message ID Being Responded To", US, 1, 1, 1) \
    ROW(0x00000600, 0xFFFFFFFF, "Move Destination", AE, 1, 1, 1) \
    ROW(0x00000700, 0xFFFFFFFF, "Priority", US, 1, 1, 1) \
    ROW(0x00000800, 0xFFFFFFFF, "Command Data Set Type", US, 1, 1, 1) \
    ROW(0x00000900, 0xFFFFFFFF, "Status", US, 1, 1, 1) \
    ROW(0x00000901, 0xFFFFFFFF, "Offending Element", AT, 1, n, 1) \
    ROW(0x00000902, 0xFFFFFFFF, "Error Comment", LO, 1, 1, 1) \
    ROW(0x00000903, 0xFFFFFFFF, "Error ID", US, 1, 1, 1) \
    ROW(0x00001000, 0xFFFFFFFF, "Affected SOP Instance UID", UI, 1, 1, 1) \
    ROW(0x00001001, 0xFFFFFFFF, "Requested SOP Instance UID", UI, 1, 1, 1) \
    ROW(0x00001002, 0xFFFFFFFF, "Event Type ID", US, 1, 1, 1) \
    ROW(0x00001005, 0xFFFFFFFF, "Attribute Identifier List", AT, 1, n, 1) \
    ROW(0x00001008, 0xFFFFFFFF, "Action Type ID", US, 1, 1, 1) \
    ROW(0x00001020, 0xFFFFFFFF, "Number of Remaining Sub-operations", US, 1, 1, 1) \
    ROW(0x00001021, 0xFFFFFFFF, "Number of Completed Sub-operations", US, 1, 1, 1) \
    ROW(0x00001022, 0xFFFFFFFF, "Number of Failed Sub-operations", US, 1, 1, 1) \
    ROW(0x00001023, 0xFFFFFFFF, "Number of Warning Sub-operations", US, 1, 1, 1) \
    ROW(0x00001030, 0xFFFFFFFF, "Move Originator Application Entity Title", AE, 1, 1, 1) \
    ROW(0x00001031, 0xFFFFFFFF, "Move Originator Message ID", US, 1, 1, 1) \
    ROW(0x00020000, 0xFFFFFFFF, "File Meta Information Group Length", UL, 1, 1, 1) \
    ROW(0x00020001, 0xFFFFFFFF, "File Meta Information Version", OB, 1, 1, 1) \
    ROW(0x00020002, 0xFFFFFFFF, "Media Storage SOP Class UID", UI, 1, 1, 1) \
    ROW(0x00020003, 0xFFFFFFFF, "Media Storage SOP Instance UID", UI, 1, 1, 1) \
    ROW(0x00020010, 0xFFFFFFFF, "Transfer Syntax UID", UI, 1, 1, 1) \
    ROW(0x00020012, 0xFFFFFFFF, "Implementation Class UID", UI, 1, 1, 1) \
    ROW(0x00020013, 0xFFFFFFFF, "Implementation Version Name", SH, 1, 1, 1) \
    ROW(0x00020016, 0xFFFFFFFF, "Source Application Entity Title", AE, 1, 1, 1) \
    ROW(0x00020100, 0xFFFFFFFF, "Private Information Creator UID", UI, 1, 1, 1) \
    ROW(0x00020102, 0xFFFFFFFF, "Private Information", OB, 1, 1, 1) \
    ROW(0x00040000, 0xFFFFFFFF, "Group Length", UL, 1, 1, 1) \
    ROW(0x00041130, 0xFFFFFFFF, "File-set ID", CS, 1, 1, 1) \
    ROW(0x00041141, 0xFFFFFFFF, "File-set Descriptor File ID", CS, 1, 8, 1) \
    ROW(0x00041142, 0xFFFFFFFF, "Specific Character Set of File-set Descriptor File", CS, 1, 1, 1) \
    ROW(0x00041200, 0xFFFFFFFF, "Offset of the First Directory Record of the Root Directory Entity", UL, 1, 1, 1) \
    ROW(0x00041202, 0xFFFFFFFF, "Offset of the Last Directory Record of the Root Directory Entity", UL, 1, 1, 1) \
    ROW(0x00041212, 0xFFFFFFFF, "File-set Consistency Flag", US, 1, 1, 1) \
    ROW(0x00041220, 0xFFFFFFFF, "Directory Record Sequence", SQ, 1, 1, 1) \
    ROW(0x00041400, 0xFFFFFFFF, "Offset of the Next Directory Record", UL, 1, 1, 1) \
    ROW(0x00041410, 0xFFFFFFFF, "Record In-use Flag", US, 1, 1, 1) \
    ROW(0x00041420, 0xFFFFFFFF, "Offset of Referenced Lower-Level Directory Entity", UL, 1, 1, 1) \
    ROW(0x00041430, 0xFFFFFFFF, "Directory Record Type", CS, 1, 1, 1) \
    ROW(0x00041432, 0xFFFFFFFF, "Private Record UID", UI, 1, 1, 1) \
    ROW(0x00041500, 0xFFFFFFFF, "Referenced File ID", CS, 1, 8, 1) \
    ROW(0x00041504, 0xFFFFFFFF, "MRDR Directory Record Offset", UL, 1, 1, 1) \
    ROW(0x00041510, 0xFFFFFFFF, "Referenced SOP Class UID in File", UI, 1, 1, 1) \
    ROW(0x00041511, 0xFFFFFFFF, "Referenced SOP Instance UID in File", UI, 1, 1, 1) \
    ROW(0x00041512, 0xFFFFFFFF, "Referenced Transfer Syntax UID in File", UI, 1, 1, 1) \
    ROW(0x0004151A, 0xFFFFFFFF, "Referenced Related General SOP Class UID in File", UI, 1, n, 1) \
    ROW(0x00041600, 0xFFFFFFFF, "Number of References", UL, 1, 1, 1) \
    ROW(0x00080001, 0xFFFFFFFF, "Length to End", UL, 1, 1, 1) \
    ROW(0x00080005, 0xFFFFFFFF, "Specific Character Set", CS, 1, n, 1) \
    ROW(0x00080008, 0xFFFFFFFF, "Image Type", CS, 2, n, 1) \
    ROW(0x00080010, 0xFFFFFFFF, "Recognition Code", CS, 1, 1, 1) \
    ROW(0x00080012, 0xFFFFFFFF, "Instance Creation Date", DA, 1, 1, 1) \
    ROW(0x00080013, 0xFFFFFFFF, "Instance Creation Time", TM, 1, 1, 1) \
    ROW(0x00080014, 0xFFFFFFFF, "Instance Creator UID", UI, 1, 1, 1) \
    ROW(0x00080016, 0xFFFFFFFF, "SOP Class UID", UI, 1, 1, 1) \
    ROW(0x00080018, 0xFFFFFFFF, "SOP Instance UID", UI, 1, 1, 1) \
    ROW(0x0008001A, 0xFFFFFFFF, "Related General SOP Class UID", UI, 1, n, 1) \
    ROW(0x0008001B, 0xFFFFFFFF, "Original Specialized SOP Class UID", UI, 1, 1, 1) \
    ROW(0x00080020, 0xFFFFFFFF, "Study Date", DA, 1, 1, 1) \
    ROW(0x00080021, 0xFFFFFFFF, "Series Date", DA, 1, 1, 1) \
    ROW(0x00080022, 0xFFFFFFFF, "Acquisition Date", DA, 1, 1, 1) \
    ROW(0x00080023, 0xFFFFFFFF, "Content Date", DA, 1, 1, 1) \
    ROW(0x00080024, 0xFFFFFFFF, "Overlay Date", DA, 1, 1, 1) \
    ROW(0x00080025, 0xFFFFFFFF, "Curve Date", DA, 1, 1, 1) \
    ROW(0x0008002A, 0xFFFFFFFF, "Acquisition DateTime", DT, 1, 1, 1) \
    ROW(0x00080030, 0xFFFFFFFF, "Study Time", TM, 1, 1, 1) \
    ROW(0x00080031, 0xFFFFFFFF, "Series Time", TM, 1, 1, 1) \
    ROW(0x00080032, 0xFFFFFFFF, "Acquisition Time", TM, 1, 1, 1) \
    ROW(0x00080033, 0xFFFFFFFF, "Content Time", TM, 1, 1, 1) \
    ROW(0x00080034, 0xFFFFFFFF, "Overlay Time", TM, 1, 1, 1) \
    ROW(0x00080035, 0xFFFFFFFF, "Curve Time", TM, 1, 1, 1) \
    ROW(0x00080040, 0xFFFFFFFF, "Data Set Type", US, 1, 1, 1) \
    ROW(0x00080041, 0xFFFFFFFF, "Data Set Subtype", LO, 1, 1, 1) \
    ROW(0x00080042, 0xFFFFFFFF, "Nuclear Medicine Series Type", CS, 1, 1, 1) \
    ROW(0x00080050, 0xFFFFFFFF, "Accession Number", SH, 1, 1, 1) \
    ROW(0x00080052, 0xFFFFFFFF, "Query/Retrieve Level", CS, 1, 1, 1) \
    ROW(0x00080054, 0xFFFFFFFF, "Retrieve AE Title", AE, 1, n, 1) \
    ROW(0x00080056, 0xFFFFFFFF, "Instance Availability", CS, 1, 1, 1) \
    ROW(0x00080058, 0xFFFFFFFF, "Failed SOP Instance UID List", UI, 1, n, 1) \
    ROW(0x00080060, 0xFFFFFFFF, "Modality", CS, 1, 1, 1) \
    ROW(0x00080061, 0xFFFFFFFF, "Modalities in Study", CS, 1, n, 1) \
    ROW(0x00080062, 0xFFFFFFFF, "SOP Classes in Study", UI, 1, n, 1) \
    ROW(0x00080064, 0xFFFFFFFF, "Conversion Type", CS, 1, 1, 1) \
    ROW(0x00080068, 0xFFFFFFFF, "Presentation Intent Type", CS, 1, 1, 1) \
    ROW(0x00080070, 0xFFFFFFFF, "Manufacturer", LO, 1, 1, 1) \
    ROW(0x00080080, 0xFFFFFFFF, "Institution Name", LO, 1, 1, 1) \
    ROW(0x00080081, 0xFFFFFFFF, "Institution Address", ST, 1, 1, 1) \
    ROW(0x00080082, 0xFFFFFFFF, "Institution Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00080090, 0xFFFFFFFF, "Referring Physician's Name", PN, 1, 1, 1) \
    ROW(0x00080092, 0xFFFFFFFF, "Referring Physician's Address", ST, 1, 1, 1) \
    ROW(0x00080094, 0xFFFFFFFF, "Referring Physician's Telephone Numbers", SH, 1, n, 1) \
    ROW(0x00080096, 0xFFFFFFFF, "Referring Physician Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00080100, 0xFFFFFFFF, "Code Value", SH, 1, 1, 1) \
    ROW(0x00080102, 0xFFFFFFFF, "Coding Scheme Designator", SH, 1, 1, 1) \
    ROW(0x00080103, 0xFFFFFFFF, "Coding Scheme Version", SH, 1, 1, 1) \
    ROW(0x00080104, 0xFFFFFFFF, "Code Meaning", LO, 1, 1, 1) \
    ROW(0x00080105, 0xFFFFFFFF, "Mapping Resource", CS, 1, 1, 1) \
    ROW(0x00080106, 0xFFFFFFFF, "Context Group Version", DT, 1, 1, 1) \
    ROW(0x00080107, 0xFFFFFFFF, "Context Group Local Version", DT, 1, 1, 1) \
    ROW(0x0008010B, 0xFFFFFFFF, "Context Group Extension Flag", CS, 1, 1, 1) \
    ROW(0x0008010C, 0xFFFFFFFF, "Coding Scheme UID", UI, 1, 1, 1) \
    ROW(0x0008010D, 0xFFFFFFFF, "Context Group Extension Creator UID", UI, 1, 1, 1) \
    ROW(0x0008010F, 0xFFFFFFFF, "Context Identifier", CS, 1, 1, 1) \
    ROW(0x00080110, 0xFFFFFFFF, "Coding Scheme Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00080112, 0xFFFFFFFF, "Coding Scheme Registry", LO, 1, 1, 1) \
    ROW(0x00080114, 0xFFFFFFFF, "Coding Scheme External ID", ST, 1, 1, 1) \
    ROW(0x00080115, 0xFFFFFFFF, "Coding Scheme Name", ST, 1, 1, 1) \
    ROW(0x00080116, 0xFFFFFFFF, "Coding Scheme Responsible Organization", ST, 1, 1, 1) \
    ROW(0x00080201, 0xFFFFFFFF, "Timezone Offset From UTC", SH, 1, 1, 1) \
    ROW(0x00081000, 0xFFFFFFFF, "Network ID", AE, 1, 1, 1) \
    ROW(0x00081010, 0xFFFFFFFF, "Station Name", SH, 1, 1, 1) \
    ROW(0x00081030, 0xFFFFFFFF, "Study Description", LO, 1, 1, 1) \
    ROW(0x00081032, 0xFFFFFFFF, "Procedure Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0008103E, 0xFFFFFFFF, "Series Description", LO, 1, 1, 1) \
    ROW(0x00081040, 0xFFFFFFFF, "Institutional Department Name", LO, 1, 1, 1) \
    ROW(0x00081048, 0xFFFFFFFF, "Physician(s) of Record", PN, 1, n, 1) \
    ROW(0x00081049, 0xFFFFFFFF, "Physician(s) of Record Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00081050, 0xFFFFFFFF, "Performing Physician's Name", PN, 1, n, 1) \
    ROW(0x00081052, 0xFFFFFFFF, "Performing Physician Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00081060, 0xFFFFFFFF, "Name of Physician(s) Reading Study", PN, 1, n, 1) \
    ROW(0x00081062, 0xFFFFFFFF, "Physician(s) Reading Study Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00081070, 0xFFFFFFFF, "Operators' Name", PN, 1, n, 1) \
    ROW(0x00081072, 0xFFFFFFFF, "Operator Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00081080, 0xFFFFFFFF, "Admitting Diagnoses Description", LO, 1, n, 1) \
    ROW(0x00081084, 0xFFFFFFFF, "Admitting Diagnoses Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00081090, 0xFFFFFFFF, "Manufacturer's Model Name", LO, 1, 1, 1) \
    ROW(0x00081100, 0xFFFFFFFF, "Referenced Results Sequence", SQ, 1, 1, 1) \
    ROW(0x00081110, 0xFFFFFFFF, "Referenced Study Sequence", SQ, 1, 1, 1) \
    ROW(0x00081111, 0xFFFFFFFF, "Referenced Performed Procedure Step Sequence", SQ, 1, 1, 1) \
    ROW(0x00081115, 0xFFFFFFFF, "Referenced Series Sequence", SQ, 1, 1, 1) \
    ROW(0x00081120, 0xFFFFFFFF, "Referenced Patient Sequence", SQ, 1, 1, 1) \
    ROW(0x00081125, 0xFFFFFFFF, "Referenced Visit Sequence", SQ, 1, 1, 1) \
    ROW(0x00081130, 0xFFFFFFFF, "Referenced Overlay Sequence", SQ, 1, 1, 1) \
    ROW(0x0008113A, 0xFFFFFFFF, "Referenced Waveform Sequence", SQ, 1, 1, 1) \
    ROW(0x00081140, 0xFFFFFFFF, "Referenced Image Sequence", SQ, 1, 1, 1) \
    ROW(0x00081145, 0xFFFFFFFF, "Referenced Curve Sequence", SQ, 1, 1, 1) \
    ROW(0x0008114A, 0xFFFFFFFF, "Referenced Instance Sequence", SQ, 1, 1, 1) \
    ROW(0x00081150, 0xFFFFFFFF, "Referenced SOP Class UID", UI, 1, 1, 1) \
    ROW(0x00081155, 0xFFFFFFFF, "Referenced SOP Instance UID", UI, 1, 1, 1) \
    ROW(0x0008115A, 0xFFFFFFFF, "SOP Classes Supported", UI, 1, n, 1) \
    ROW(0x00081160, 0xFFFFFFFF, "Referenced Frame Number", IS, 1, n, 1) \
    ROW(0x00081195, 0xFFFFFFFF, "Transaction UID", UI, 1, 1, 1) \
    ROW(0x00081197, 0xFFFFFFFF, "Failure Reason", US, 1, 1, 1) \
    ROW(0x00081198, 0xFFFFFFFF, "Failed SOP Sequence", SQ, 1, 1, 1) \
    ROW(0x00081199, 0xFFFFFFFF, "Referenced SOP Sequence", SQ, 1, 1, 1) \
    ROW(0x00081200, 0xFFFFFFFF, "Studies Containing Other Referenced Instances Sequence", SQ, 1, 1, 1) \
    ROW(0x00081250, 0xFFFFFFFF, "Related Series Sequence", SQ, 1, 1, 1) \
    ROW(0x00082110, 0xFFFFFFFF, "Lossy Image Compression (Retired)", CS, 1, 1, 1) \
    ROW(0x00082111, 0xFFFFFFFF, "Derivation Description", ST, 1, 1, 1) \
    ROW(0x00082112, 0xFFFFFFFF, "Source Image Sequence", SQ, 1, 1, 1) \
    ROW(0x00082120, 0xFFFFFFFF, "Stage Name", SH, 1, 1, 1) \
    ROW(0x00082122, 0xFFFFFFFF, "Stage Number", IS, 1, 1, 1) \
    ROW(0x00082124, 0xFFFFFFFF, "Number of Stages", IS, 1, 1, 1) \
    ROW(0x00082127, 0xFFFFFFFF, "View Name", SH, 1, 1, 1) \
    ROW(0x00082128, 0xFFFFFFFF, "View Number", IS, 1, 1, 1) \
    ROW(0x00082129, 0xFFFFFFFF, "Number of Event Timers", IS, 1, 1, 1) \
    ROW(0x0008212A, 0xFFFFFFFF, "Number of Views in Stage", IS, 1, 1, 1) \
    ROW(0x00082130, 0xFFFFFFFF, "Event Elapsed Time(s)", DS, 1, n, 1) \
    ROW(0x00082132, 0xFFFFFFFF, "Event Timer Name(s)", LO, 1, n, 1) \
    ROW(0x00082142, 0xFFFFFFFF, "Start Trim", IS, 1, 1, 1) \
    ROW(0x00082143, 0xFFFFFFFF, "Stop Trim", IS, 1, 1, 1) \
    ROW(0x00082144, 0xFFFFFFFF, "Recommended Display Frame Rate", IS, 1, 1, 1) \
    ROW(0x00082200, 0xFFFFFFFF, "Transducer Position", CS, 1, 1, 1) \
    ROW(0x00082204, 0xFFFFFFFF, "Transducer Orientation", CS, 1, 1, 1) \
    ROW(0x00082208, 0xFFFFFFFF, "Anatomic Structure", CS, 1, 1, 1) \
    ROW(0x00082218, 0xFFFFFFFF, "Anatomic Region Sequence", SQ, 1, 1, 1) \
    ROW(0x00082220, 0xFFFFFFFF, "Anatomic Region Modifier Sequence", SQ, 1, 1, 1) \
    ROW(0x00082228, 0xFFFFFFFF, "Primary Anatomic Structure Sequence", SQ, 1, 1, 1) \
    ROW(0x00082229, 0xFFFFFFFF, "Anatomic Structure, Space or Region Sequence", SQ, 1, 1, 1) \
    ROW(0x00082230, 0xFFFFFFFF, "Primary Anatomic Structure Modifier Sequence", SQ, 1, 1, 1) \
    ROW(0x00082240, 0xFFFFFFFF, "Transducer Position Sequence", SQ, 1, 1, 1) \
    ROW(0x00082242, 0xFFFFFFFF, "Transducer Position Modifier Sequence", SQ, 1, 1, 1) \
    ROW(0x00082244, 0xFFFFFFFF, "Transducer Orientation Sequence", SQ, 1, 1, 1) \
    ROW(0x00082246, 0xFFFFFFFF, "Transducer Orientation Modifier Sequence", SQ, 1, 1, 1) \
    ROW(0x00082251, 0xFFFFFFFF, "Anatomic Structure Space Or Region Code Sequence (Trial)", SQ, 1, 1, 1) \
    ROW(0x00082253, 0xFFFFFFFF, "Anatomic Portal Of Entrance Code Sequence (Trial)", SQ, 1, 1, 1) \
    ROW(0x00082255, 0xFFFFFFFF, "Anatomic Approach Direction Code Sequence (Trial)", SQ, 1, 1, 1) \
    ROW(0x00082256, 0xFFFFFFFF, "Anatomic Perspective Description (Trial)", ST, 1, 1, 1) \
    ROW(0x00082257, 0xFFFFFFFF, "Anatomic Perspective Code Sequence (Trial)", SQ, 1, 1, 1) \
    ROW(0x00082258, 0xFFFFFFFF, "Anatomic Location Of Examining Instrument Description (Trial)", ST, 1, 1, 1) \
    ROW(0x00082259, 0xFFFFFFFF, "Anatomic Location Of Examining Instrument Code Sequence (Trial)", SQ, 1, 1, 1) \
    ROW(0x0008225A, 0xFFFFFFFF, "Anatomic Structure Space Or Region Modifier Code Sequence (Trial)", SQ, 1, 1, 1) \
    ROW(0x0008225C, 0xFFFFFFFF, "OnAxis Background Anatomic Structure Code Sequence (Trial)", SQ, 1, 1, 1) \
    ROW(0x00083001, 0xFFFFFFFF, "Alternate Representation Sequence", SQ, 1, 1, 1) \
    ROW(0x00084000, 0xFFFFFFFF, "Identifying Comments", LT, 1, 1, 1) \
    ROW(0x00089007, 0xFFFFFFFF, "Frame Type", CS, 4, 4, 4) \
    ROW(0x00089092, 0xFFFFFFFF, "Referenced Image Evidence Sequence", SQ, 1, 1, 1) \
    ROW(0x00089121, 0xFFFFFFFF, "Referenced Raw Data Sequence", SQ, 1, 1, 1) \
    ROW(0x00089123, 0xFFFFFFFF, "Creator-Version UID", UI, 1, 1, 1) \
    ROW(0x00089124, 0xFFFFFFFF, "Derivation Image Sequence", SQ, 1, 1, 1) \
    ROW(0x00089154, 0xFFFFFFFF, "Source Image Evidence Sequence", SQ, 1, 1, 1) \
    ROW(0x00089205, 0xFFFFFFFF, "Pixel Presentation", CS, 1, 1, 1) \
    ROW(0x00089206, 0xFFFFFFFF, "Volumetric Properties", CS, 1, 1, 1) \
    ROW(0x00089207, 0xFFFFFFFF, "Volume Based Calculation Technique", CS, 1, 1, 1) \
    ROW(0x00089208, 0xFFFFFFFF, "Complex Image Component", CS, 1, 1, 1) \
    ROW(0x00089209, 0xFFFFFFFF, "Acquisition Contrast", CS, 1, 1, 1) \
    ROW(0x00089215, 0xFFFFFFFF, "Derivation Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00089237, 0xFFFFFFFF, "Referenced Grayscale Presentation State Sequence", SQ, 1, 1, 1) \
    ROW(0x00100010, 0xFFFFFFFF, "Patient's Name", PN, 1, 1, 1) \
    ROW(0x00100020, 0xFFFFFFFF, "Patient ID", LO, 1, 1, 1) \
    ROW(0x00100021, 0xFFFFFFFF, "Issuer of Patient ID", LO, 1, 1, 1) \
    ROW(0x00100030, 0xFFFFFFFF, "Patient's Birth Date", DA, 1, 1, 1) \
    ROW(0x00100032, 0xFFFFFFFF, "Patient's Birth Time", TM, 1, 1, 1) \
    ROW(0x00100040, 0xFFFFFFFF, "Patient's Sex", CS, 1, 1, 1) \
    ROW(0x00100050, 0xFFFFFFFF, "Patient's Insurance Plan Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00100101, 0xFFFFFFFF, "Patient's Primary Language Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00100102, 0xFFFFFFFF, "Patient's Primary Language Code Modifier Sequence", SQ, 1, 1, 1) \
    ROW(0x00101000, 0xFFFFFFFF, "Other Patient IDs", LO, 1, n, 1) \
    ROW(0x00101001, 0xFFFFFFFF, "Other Patient Names", PN, 1, n, 1) \
    ROW(0x00101005, 0xFFFFFFFF, "Patient's Birth Name", PN, 1, 1, 1) \
    ROW(0x00101010, 0xFFFFFFFF, "Patient's Age", AS, 1, 1, 1) \
    ROW(0x00101020, 0xFFFFFFFF, "Patient's Size", DS, 1, 1, 1) \
    ROW(0x00101030, 0xFFFFFFFF, "Patient's Weight", DS, 1, 1, 1) \
    ROW(0x00101040, 0xFFFFFFFF, "Patient's Address", LO, 1, 1, 1) \
    ROW(0x00101050, 0xFFFFFFFF, "Insurance Plan Identification", LO, 1, n, 1) \
    ROW(0x00101060, 0xFFFFFFFF, "Patient's Mother's Birth Name", PN, 1, 1, 1) \
    ROW(0x00101080, 0xFFFFFFFF, "Military Rank", LO, 1, 1, 1) \
    ROW(0x00101081, 0xFFFFFFFF, "Branch of Service", LO, 1, 1, 1) \
    ROW(0x00101090, 0xFFFFFFFF, "Medical Record Locator", LO, 1, 1, 1) \
    ROW(0x00102000, 0xFFFFFFFF, "Medical Alerts", LO, 1, n, 1) \
    ROW(0x00102110, 0xFFFFFFFF, "Allergies", LO, 1, n, 1) \
    ROW(0x00102150, 0xFFFFFFFF, "Country of Residence", LO, 1, 1, 1) \
    ROW(0x00102152, 0xFFFFFFFF, "Region of Residence", LO, 1, 1, 1) \
    ROW(0x00102154, 0xFFFFFFFF, "Patient's Telephone Numbers", SH, 1, n, 1) \
    ROW(0x00102160, 0xFFFFFFFF, "Ethnic Group", SH, 1, 1, 1) \
    ROW(0x00102180, 0xFFFFFFFF, "Occupation", SH, 1, 1, 1) \
    ROW(0x001021A0, 0xFFFFFFFF, "Smoking Status", CS, 1, 1, 1) \
    ROW(0x001021B0, 0xFFFFFFFF, "Additional Patient History", LT, 1, 1, 1) \
    ROW(0x001021C0, 0xFFFFFFFF, "Pregnancy Status", US, 1, 1, 1) \
    ROW(0x001021D0, 0xFFFFFFFF, "Last Menstrual Date", DA, 1, 1, 1) \
    ROW(0x001021F0, 0xFFFFFFFF, "Patient's Religious Preference", LO, 1, 1, 1) \
    ROW(0x00104000, 0xFFFFFFFF, "Patient Comments", LT, 1, 1, 1) \
    ROW(0x00120010, 0xFFFFFFFF, "Clinical Trial Sponsor Name", LO, 1, 1, 1) \
    ROW(0x00120020, 0xFFFFFFFF, "Clinical Trial Protocol ID", LO, 1, 1, 1) \
    ROW(0x00120021, 0xFFFFFFFF, "Clinical Trial Protocol Name", LO, 1, 1, 1) \
    ROW(0x00120030, 0xFFFFFFFF, "Clinical Trial Site ID", LO, 1, 1, 1) \
    ROW(0x00120031, 0xFFFFFFFF, "Clinical Trial Site Name", LO, 1, 1, 1) \
    ROW(0x00120040, 0xFFFFFFFF, "Clinical Trial Subject ID", LO, 1, 1, 1) \
    ROW(0x00120042, 0xFFFFFFFF, "Clinical Trial Subject Reading ID", LO, 1, 1, 1) \
    ROW(0x00120050, 0xFFFFFFFF, "Clinical Trial Time Point ID", LO, 1, 1, 1) \
    ROW(0x00120051, 0xFFFFFFFF, "Clinical Trial Time Point Description", ST, 1, 1, 1) \
    ROW(0x00120060, 0xFFFFFFFF, "Clinical Trial Coordinating Center Name", LO, 1, 1, 1) \
    ROW(0x00180010, 0xFFFFFFFF, "Contrast/Bolus Agent", LO, 1, 1, 1) \
    ROW(0x00180012, 0xFFFFFFFF, "Contrast/Bolus Agent Sequence", SQ, 1, 1, 1) \
    ROW(0x00180014, 0xFFFFFFFF, "Contrast/Bolus Administration Route Sequence", SQ, 1, 1, 1) \
    ROW(0x00180015, 0xFFFFFFFF, "Body Part Examined", CS, 1, 1, 1) \
    ROW(0x00180020, 0xFFFFFFFF, "Scanning Sequence", CS, 1, n, 1) \
    ROW(0x00180021, 0xFFFFFFFF, "Sequence Variant", CS, 1, n, 1) \
    ROW(0x00180022, 0xFFFFFFFF, "Scan Options", CS, 1, n, 1) \
    ROW(0x00180023, 0xFFFFFFFF, "MR Acquisition Type", CS, 1, 1, 1) \
    ROW(0x00180024, 0xFFFFFFFF, "Sequence Name", SH, 1, 1, 1) \
    ROW(0x00180025, 0xFFFFFFFF, "Angio Flag", CS, 1, 1, 1) \
    ROW(0x00180026, 0xFFFFFFFF, "Intervention Drug Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00180027, 0xFFFFFFFF, "Intervention Drug Stop Time", TM, 1, 1, 1) \
    ROW(0x00180028, 0xFFFFFFFF, "Intervention Drug Dose", DS, 1, 1, 1) \
    ROW(0x00180029, 0xFFFFFFFF, "Intervention Drug Sequence", SQ, 1, 1, 1) \
    ROW(0x0018002A, 0xFFFFFFFF, "Additional Drug Sequence", SQ, 1, 1, 1) \
    ROW(0x00180030, 0xFFFFFFFF, "Radionuclide", LO, 1, n, 1) \
    ROW(0x00180031, 0xFFFFFFFF, "Radiopharmaceutical", LO, 1, 1, 1) \
    ROW(0x00180032, 0xFFFFFFFF, "Energy Window Centerline", DS, 1, 1, 1) \
    ROW(0x00180033, 0xFFFFFFFF, "Energy Window Total Width", DS, 1, n, 1) \
    ROW(0x00180034, 0xFFFFFFFF, "Intervention Drug Name", LO, 1, 1, 1) \
    ROW(0x00180035, 0xFFFFFFFF, "Intervention Drug Start Time", TM, 1, 1, 1) \
    ROW(0x00180036, 0xFFFFFFFF, "Intervention Sequence", SQ, 1, 1, 1) \
    ROW(0x00180037, 0xFFFFFFFF, "Therapy Type", CS, 1, 1, 1) \
    ROW(0x00180038, 0xFFFFFFFF, "Intervention Status", CS, 1, 1, 1) \
    ROW(0x00180039, 0xFFFFFFFF, "Therapy Description", CS, 1, 1, 1) \
    ROW(0x0018003A, 0xFFFFFFFF, "Intervention Description", ST, 1, 1, 1) \
    ROW(0x00180040, 0xFFFFFFFF, "Cine Rate", IS, 1, 1, 1) \
    ROW(0x00180050, 0xFFFFFFFF, "Slice Thickness", DS, 1, 1, 1) \
    ROW(0x00180060, 0xFFFFFFFF, "KVP", DS, 1, 1, 1) \
    ROW(0x00180070, 0xFFFFFFFF, "Counts Accumulated", IS, 1, 1, 1) \
    ROW(0x00180071, 0xFFFFFFFF, "Acquisition Termination Condition", CS, 1, 1, 1) \
    ROW(0x00180072, 0xFFFFFFFF, "Effective Duration", DS, 1, 1, 1) \
    ROW(0x00180073, 0xFFFFFFFF, "Acquisition Start Condition", CS, 1, 1, 1) \
    ROW(0x00180074, 0xFFFFFFFF, "Acquisition Start Condition Data", IS, 1, 1, 1) \
    ROW(0x00180075, 0xFFFFFFFF, "Acquisition Termination Condition Data", IS, 1, 1, 1) \
    ROW(0x00180080, 0xFFFFFFFF, "Repetition Time", DS, 1, 1, 1) \
    ROW(0x00180081, 0xFFFFFFFF, "Echo Time", DS, 1, 1, 1) \
    ROW(0x00180082, 0xFFFFFFFF, "Inversion Time", DS, 1, 1, 1) \
    ROW(0x00180083, 0xFFFFFFFF, "Number of Averages", DS, 1, 1, 1) \
    ROW(0x00180084, 0xFFFFFFFF, "Imaging Frequency", DS, 1, 1, 1) \
    ROW(0x00180085, 0xFFFFFFFF, "Imaged Nucleus", SH, 1, 1, 1) \
    ROW(0x00180086, 0xFFFFFFFF, "Echo Number(s)", IS, 1, n, 1) \
    ROW(0x00180087, 0xFFFFFFFF, "Magnetic Field Strength", DS, 1, 1, 1) \
    ROW(0x00180088, 0xFFFFFFFF, "Spacing Between Slices", DS, 1, 1, 1) \
    ROW(0x00180089, 0xFFFFFFFF, "Number of Phase Encoding Steps", IS, 1, 1, 1) \
    ROW(0x00180090, 0xFFFFFFFF, "Data Collection Diameter", DS, 1, 1, 1) \
    ROW(0x00180091, 0xFFFFFFFF, "Echo Train Length", IS, 1, 1, 1) \
    ROW(0x00180093, 0xFFFFFFFF, "Percent Sampling", DS, 1, 1, 1) \
    ROW(0x00180094, 0xFFFFFFFF, "Percent Phase Field of View", DS, 1, 1, 1) \
    ROW(0x00180095, 0xFFFFFFFF, "Pixel Bandwidth", DS, 1, 1, 1) \
    ROW(0x00181000, 0xFFFFFFFF, "Device Serial Number", LO, 1, 1, 1) \
    ROW(0x00181004, 0xFFFFFFFF, "Plate ID", LO, 1, 1, 1) \
    ROW(0x00181010, 0xFFFFFFFF, "Secondary Capture Device ID", LO, 1, 1, 1) \
    ROW(0x00181011, 0xFFFFFFFF, "Hardcopy Creation Device ID", LO, 1, 1, 1) \
    ROW(0x00181012, 0xFFFFFFFF, "Date of Secondary Capture", DA, 1, 1, 1) \
    ROW(0x00181014, 0xFFFFFFFF, "Time of Secondary Capture", TM, 1, 1, 1) \
    ROW(0x00181016, 0xFFFFFFFF, "Secondary Capture Device Manufacturers", LO, 1, 1, 1) \
    ROW(0x00181017, 0xFFFFFFFF, "Hardcopy Device Manufacturer", LO, 1, 1, 1) \
    ROW(0x00181018, 0xFFFFFFFF, "Secondary Capture Device Manufacturer's Model Name", LO, 1, 1, 1) \
    ROW(0x00181019, 0xFFFFFFFF, "Secondary Capture Device Software Version(s)", LO, 1, n, 1) \
    ROW(0x0018101A, 0xFFFFFFFF, "Hardcopy Device Software Version", LO, 1, n, 1) \
    ROW(0x0018101B, 0xFFFFFFFF, "Hardcopy Device Manufacturer's Model Name", LO, 1, 1, 1) \
    ROW(0x00181020, 0xFFFFFFFF, "Software Versions", LO, 1, n, 1) \
    ROW(0x00181022, 0xFFFFFFFF, "Video Image Format Acquired", SH, 1, 1, 1) \
    ROW(0x00181023, 0xFFFFFFFF, "Digital Image Format Acquired", LO, 1, 1, 1) \
    ROW(0x00181030, 0xFFFFFFFF, "Protocol Name", LO, 1, 1, 1) \
    ROW(0x00181040, 0xFFFFFFFF, "Contrast/Bolus Route", LO, 1, 1, 1) \
    ROW(0x00181041, 0xFFFFFFFF, "Contrast/Bolus Volume", DS, 1, 1, 1) \
    ROW(0x00181042, 0xFFFFFFFF, "Contrast/Bolus Start Time", TM, 1, 1, 1) \
    ROW(0x00181043, 0xFFFFFFFF, "Contrast/Bolus Stop Time", TM, 1, 1, 1) \
    ROW(0x00181044, 0xFFFFFFFF, "Contrast/Bolus Total Dose", DS, 1, 1, 1) \
    ROW(0x00181045, 0xFFFFFFFF, "Syringe Counts", IS, 1, 1, 1) \
    ROW(0x00181046, 0xFFFFFFFF, "Contrast Flow Rate", DS, 1, n, 1) \
    ROW(0x00181047, 0xFFFFFFFF, "Contrast Flow Duration", DS, 1, n, 1) \
    ROW(0x00181048, 0xFFFFFFFF, "Contrast/Bolus Ingredient", CS, 1, 1, 1) \
    ROW(0x00181049, 0xFFFFFFFF, "Contrast/Bolus Ingredient Concentration", DS, 1, 1, 1) \
    ROW(0x00181050, 0xFFFFFFFF, "Spatial Resolution", DS, 1, 1, 1) \
    ROW(0x00181060, 0xFFFFFFFF, "Trigger Time", DS, 1, 1, 1) \
    ROW(0x00181061, 0xFFFFFFFF, "Trigger Source or Type", LO, 1, 1, 1) \
    ROW(0x00181062, 0xFFFFFFFF, "Nominal Interval", IS, 1, 1, 1) \
    ROW(0x00181063, 0xFFFFFFFF, "Frame Time", DS, 1, 1, 1) \
    ROW(0x00181064, 0xFFFFFFFF, "Cardiac Framing Type", LO, 1, 1, 1) \
    ROW(0x00181065, 0xFFFFFFFF, "Frame Time Vector", DS, 1, n, 1) \
    ROW(0x00181066, 0xFFFFFFFF, "Frame Delay", DS, 1, 1, 1) \
    ROW(0x00181067, 0xFFFFFFFF, "Image Trigger Delay", DS, 1, 1, 1) \
    ROW(0x00181068, 0xFFFFFFFF, "Multiplex Group Time Offset", DS, 1, 1, 1) \
    ROW(0x00181069, 0xFFFFFFFF, "Trigger Time Offset", DS, 1, 1, 1) \
    ROW(0x0018106A, 0xFFFFFFFF, "Synchronization Trigger", CS, 1, 1, 1) \
    ROW(0x0018106C, 0xFFFFFFFF, "Synchronization Channel", US, 2, 2, 2) \
    ROW(0x0018106E, 0xFFFFFFFF, "Trigger Sample Position", UL, 1, 1, 1) \
    ROW(0x00181070, 0xFFFFFFFF, "Radiopharmaceutical Route", LO, 1, 1, 1) \
    ROW(0x00181071, 0xFFFFFFFF, "Radiopharmaceutical Volume", DS, 1, 1, 1) \
    ROW(0x00181072, 0xFFFFFFFF, "Radiopharmaceutical Start Time", TM, 1, 1, 1) \
    ROW(0x00181073, 0xFFFFFFFF, "Radiopharmaceutical Stop Time", TM, 1, 1, 1) \
    ROW(0x00181074, 0xFFFFFFFF, "Radionuclide Total Dose", DS, 1, 1, 1) \
    ROW(0x00181075, 0xFFFFFFFF, "Radionuclide Half Life", DS, 1, 1, 1) \
    ROW(0x00181076, 0xFFFFFFFF, "Radionuclide Positron Fraction", DS, 1, 1, 1) \
    ROW(0x00181077, 0xFFFFFFFF, "Radiopharmaceutical Specific Activity", DS, 1, 1, 1) \
    ROW(0x00181080, 0xFFFFFFFF, "Beat Rejection Flag", CS, 1, 1, 1) \
    ROW(0x00181081, 0xFFFFFFFF, "Low R-R Value", IS, 1, 1, 1) \
    ROW(0x00181082, 0xFFFFFFFF, "High R-R Value", IS, 1, 1, 1) \
    ROW(0x00181083, 0xFFFFFFFF, "Intervals Acquired", IS, 1, 1, 1) \
    ROW(0x00181084, 0xFFFFFFFF, "Intervals Rejected", IS, 1, 1, 1) \
    ROW(0x00181085, 0xFFFFFFFF, "PVC Rejection", LO, 1, 1, 1) \
    ROW(0x00181086, 0xFFFFFFFF, "Skip Beats", IS, 1, 1, 1) \
    ROW(0x00181088, 0xFFFFFFFF, "Heart Rate", IS, 1, 1, 1) \
    ROW(0x00181090, 0xFFFFFFFF, "Cardiac Number of Images", IS, 1, 1, 1) \
    ROW(0x00181094, 0xFFFFFFFF, "Trigger Window", IS, 1, 1, 1) \
    ROW(0x00181100, 0xFFFFFFFF, "Reconstruction Diameter", DS, 1, 1, 1) \
    ROW(0x00181110, 0xFFFFFFFF, "Distance Source to Detector", DS, 1, 1, 1) \
    ROW(0x00181111, 0xFFFFFFFF, "Distance Source to Patient", DS, 1, 1, 1) \
    ROW(0x00181114, 0xFFFFFFFF, "Estimated Radiographic Magnification Factor", DS, 1, 1, 1) \
    ROW(0x00181120, 0xFFFFFFFF, "Gantry/Detector Tilt", DS, 1, 1, 1) \
    ROW(0x00181121, 0xFFFFFFFF, "Gantry/Detector Slew", DS, 1, 1, 1) \
    ROW(0x00181130, 0xFFFFFFFF, "Table Height", DS, 1, 1, 1) \
    ROW(0x00181131, 0xFFFFFFFF, "Table Traverse", DS, 1, 1, 1) \
    ROW(0x00181134, 0xFFFFFFFF, "Table Motion", CS, 1, 1, 1) \
    ROW(0x00181135, 0xFFFFFFFF, "Table Vertical Increment", DS, 1, n, 1) \
    ROW(0x00181136, 0xFFFFFFFF, "Table Lateral Increment", DS, 1, n, 1) \
    ROW(0x00181137, 0xFFFFFFFF, "Table Longitudinal Increment", DS, 1, n, 1) \
    ROW(0x00181138, 0xFFFFFFFF, "Table Angle", DS, 1, 1, 1) \
    ROW(0x0018113A, 0xFFFFFFFF, "Table Type", CS, 1, 1, 1) \
    ROW(0x00181140, 0xFFFFFFFF, "Rotation Direction", CS, 1, 1, 1) \
    ROW(0x00181141, 0xFFFFFFFF, "Angular Position", DS, 1, 1, 1) \
    ROW(0x00181142, 0xFFFFFFFF, "Radial Position", DS, 1, n, 1) \
    ROW(0x00181143, 0xFFFFFFFF, "Scan Arc", DS, 1, 1, 1) \
    ROW(0x00181144, 0xFFFFFFFF, "Angular Step", DS, 1, 1, 1) \
    ROW(0x00181145, 0xFFFFFFFF, "Center of Rotation Offset", DS, 1, 1, 1) \
    ROW(0x00181146, 0xFFFFFFFF, "Rotation Offset", DS, 1, n, 1) \
    ROW(0x00181147, 0xFFFFFFFF, "Field of View Shape", CS, 1, 1, 1) \
    ROW(0x00181149, 0xFFFFFFFF, "Field of View Dimension(s)", IS, 1, 2, 1) \
    ROW(0x00181150, 0xFFFFFFFF, "Exposure Time", IS, 1, 1, 1) \
    ROW(0x00181151, 0xFFFFFFFF, "X-Ray Tube Current", IS, 1, 1, 1) \
    ROW(0x00181152, 0xFFFFFFFF, "Exposure", IS, 1, 1, 1) \
    ROW(0x00181153, 0xFFFFFFFF, "Exposure in uAs", IS, 1, 1, 1) \
    ROW(0x00181154, 0xFFFFFFFF, "Average Pulse Width", DS, 1, 1, 1) \
    ROW(0x00181155, 0xFFFFFFFF, "Radiation Setting", CS, 1, 1, 1) \
    ROW(0x00181156, 0xFFFFFFFF, "Rectification Type", CS, 1, 1, 1) \
    ROW(0x0018115A, 0xFFFFFFFF, "Radiation Mode", CS, 1, 1, 1) \
    ROW(0x0018115E, 0xFFFFFFFF, "Image and Fluoroscopy Area Dose Product", DS, 1, 1, 1) \
    ROW(0x00181160, 0xFFFFFFFF, "Filter Type", SH, 1, 1, 1) \
    ROW(0x00181161, 0xFFFFFFFF, "Type of Filters", LO, 1, n, 1) \
    ROW(0x00181162, 0xFFFFFFFF, "Intensifier Size", DS, 1, 1, 1) \
    ROW(0x00181164, 0xFFFFFFFF, "Imager Pixel Spacing", DS, 2, 2, 2) \
    ROW(0x00181166, 0xFFFFFFFF, "Grid", CS, 1, n, 1) \
    ROW(0x00181170, 0xFFFFFFFF, "Generator Power", IS, 1, 1, 1) \
    ROW(0x00181180, 0xFFFFFFFF, "Collimator/grid Name", SH, 1, 1, 1) \
    ROW(0x00181181, 0xFFFFFFFF, "Collimator Type", CS, 1, 1, 1) \
    ROW(0x00181182, 0xFFFFFFFF, "Focal Distance", IS, 1, 2, 1) \
    ROW(0x00181183, 0xFFFFFFFF, "X Focus Center", DS, 1, 2, 1) \
    ROW(0x00181184, 0xFFFFFFFF, "Y Focus Center", DS, 1, 2, 1) \
    ROW(0x00181190, 0xFFFFFFFF, "Focal Spot(s)", DS, 1, n, 1) \
    ROW(0x00181191, 0xFFFFFFFF, "Anode Target Material", CS, 1, 1, 1) \
    ROW(0x001811A0, 0xFFFFFFFF, "Body Part Thickness", DS, 1, 1, 1) \
    ROW(0x001811A2, 0xFFFFFFFF, "Compression Force", DS, 1, 1, 1) \
    ROW(0x00181200, 0xFFFFFFFF, "Date of Last Calibration", DA, 1, n, 1) \
    ROW(0x00181201, 0xFFFFFFFF, "Time of Last Calibration", TM, 1, n, 1) \
    ROW(0x00181210, 0xFFFFFFFF, "Convolution Kernel", SH, 1, n, 1) \
    ROW(0x00181240, 0xFFFFFFFF, "Upper/Lower Pixel Values", IS, 1, n, 1) \
    ROW(0x00181242, 0xFFFFFFFF, "Actual Frame Duration", IS, 1, 1, 1) \
    ROW(0x00181243, 0xFFFFFFFF, "Count Rate", IS, 1, 1, 1) \
    ROW(0x00181244, 0xFFFFFFFF, "Preferred Playback Sequencing", US, 1, 1, 1) \
    ROW(0x00181250, 0xFFFFFFFF, "Receive Coil Name", SH, 1, 1, 1) \
    ROW(0x00181251, 0xFFFFFFFF, "Transmit Coil Name", SH, 1, 1, 1) \
    ROW(0x00181260, 0xFFFFFFFF, "Plate Type", SH, 1, 1, 1) \
    ROW(0x00181261, 0xFFFFFFFF, "Phosphor Type", LO, 1, 1, 1) \
    ROW(0x00181300, 0xFFFFFFFF, "Scan Velocity", DS, 1, 1, 1) \
    ROW(0x00181301, 0xFFFFFFFF, "Whole Body Technique", CS, 1, n, 1) \
    ROW(0x00181302, 0xFFFFFFFF, "Scan Length", IS, 1, 1, 1) \
    ROW(0x00181310, 0xFFFFFFFF, "Acquisition Matrix", US, 4, 4, 4) \
    ROW(0x00181312, 0xFFFFFFFF, "In-plane Phase Encoding Direction", CS, 1, 1, 1) \
    ROW(0x00181314, 0xFFFFFFFF, "Flip Angle", DS, 1, 1, 1) \
    ROW(0x00181315, 0xFFFFFFFF, "Variable Flip Angle Flag", CS, 1, 1, 1) \
    ROW(0x00181316, 0xFFFFFFFF, "SAR", DS, 1, 1, 1) \
    ROW(0x00181318, 0xFFFFFFFF, "dB/dt", DS, 1, 1, 1) \
    ROW(0x00181400, 0xFFFFFFFF, "Acquisition Device Processing Description", LO, 1, 1, 1) \
    ROW(0x00181401, 0xFFFFFFFF, "Acquisition Device Processing Code", LO, 1, 1, 1) \
    ROW(0x00181402, 0xFFFFFFFF, "Cassette Orientation", CS, 1, 1, 1) \
    ROW(0x00181403, 0xFFFFFFFF, "Cassette Size", CS, 1, 1, 1) \
    ROW(0x00181404, 0xFFFFFFFF, "Exposures on Plate", US, 1, 1, 1) \
    ROW(0x00181405, 0xFFFFFFFF, "Relative X-Ray Exposure", IS, 1, 1, 1) \
    ROW(0x00181450, 0xFFFFFFFF, "Column Angulation", DS, 1, 1, 1) \
    ROW(0x00181460, 0xFFFFFFFF, "Tomo Layer Height", DS, 1, 1, 1) \
    ROW(0x00181470, 0xFFFFFFFF, "Tomo Angle", DS, 1, 1, 1) \
    ROW(0x00181480, 0xFFFFFFFF, "Tomo Time", DS, 1, 1, 1) \
    ROW(0x00181490, 0xFFFFFFFF, "Tomo Type", CS, 1, 1, 1) \
    ROW(0x00181491, 0xFFFFFFFF, "Tomo Class", CS, 1, 1, 1) \
    ROW(0x00181495, 0xFFFFFFFF, "Number of Tomosynthesis Source Images", IS, 1, 1, 1) \
    ROW(0x00181500, 0xFFFFFFFF, "Positioner Motion", CS, 1, 1, 1) \
    ROW(0x00181508, 0xFFFFFFFF, "Positioner Type", CS, 1, 1, 1) \
    ROW(0x00181510, 0xFFFFFFFF, "Positioner Primary Angle", DS, 1, 1, 1) \
    ROW(0x00181511, 0xFFFFFFFF, "Positioner Secondary Angle", DS, 1, 1, 1) \
    ROW(0x00181520, 0xFFFFFFFF, "Positioner Primary Angle Increment", DS, 1, n, 1) \
    ROW(0x00181521, 0xFFFFFFFF, "Positioner Secondary Angle Increment", DS, 1, n, 1) \
    ROW(0x00181530, 0xFFFFFFFF, "Detector Primary Angle", DS, 1, 1, 1) \
    ROW(0x00181531, 0xFFFFFFFF, "Detector Secondary Angle", DS, 1, 1, 1) \
    ROW(0x00181600, 0xFFFFFFFF, "Shutter Shape", CS, 1, 3, 1) \
    ROW(0x00181602, 0xFFFFFFFF, "Shutter Left Vertical Edge", IS, 1, 1, 1) \
    ROW(0x00181604, 0xFFFFFFFF, "Shutter Right Vertical Edge", IS, 1, 1, 1) \
    ROW(0x00181606, 0xFFFFFFFF, "Shutter Upper Horizontal Edge", IS, 1, 1, 1) \
    ROW(0x00181608, 0xFFFFFFFF, "Shutter Lower Horizontal Edge", IS, 1, 1, 1) \
    ROW(0x00181610, 0xFFFFFFFF, "Center of Circular Shutter", IS, 2, 2, 2) \
    ROW(0x00181612, 0xFFFFFFFF, "Radius of Circular Shutter", IS, 1, 1, 1) \
    ROW(0x00181620, 0xFFFFFFFF, "Vertices of the Polygonal Shutter", IS, 2, n, 2) \
    ROW(0x00181622, 0xFFFFFFFF, "Shutter Presentation Value", US, 1, 1, 2) \
    ROW(0x00181623, 0xFFFFFFFF, "Shutter Overlay Group", US, 1, 1, 2) \
    ROW(0x00181700, 0xFFFFFFFF, "Collimator Shape", CS, 1, 3, 1) \
    ROW(0x00181702, 0xFFFFFFFF, "Collimator Left Vertical Edge", IS, 1, 1, 1) \
    ROW(0x00181704, 0xFFFFFFFF, "Collimator Right Vertical Edge", IS, 1, 1, 1) \
    ROW(0x00181706, 0xFFFFFFFF, "Collimator Upper Horizontal Edge", IS, 1, 1, 1) \
    ROW(0x00181708, 0xFFFFFFFF, "Collimator Lower Horizontal Edge", IS, 1, 1, 1) \
    ROW(0x00181710, 0xFFFFFFFF, "Center of Circular Collimator", IS, 2, 2, 2) \
    ROW(0x00181712, 0xFFFFFFFF, "Radius of Circular Collimator", IS, 1, 1, 1) \
    ROW(0x00181720, 0xFFFFFFFF, "Vertices of the Polygonal Collimator", IS, 2, n, 2) \
    ROW(0x00181800, 0xFFFFFFFF, "Acquisition Time Synchronized", CS, 1, 1, 1) \
    ROW(0x00181801, 0xFFFFFFFF, "Time Source", SH, 1, 1, 1) \
    ROW(0x00181802, 0xFFFFFFFF, "Time Distribution Protocol", CS, 1, 1, 1) \
    ROW(0x00181803, 0xFFFFFFFF, "NTP Source Address", LO, 1, 1, 1) \
    ROW(0x00182001, 0xFFFFFFFF, "Page Number Vector", IS, 1, n, 1) \
    ROW(0x00182002, 0xFFFFFFFF, "Frame Label Vector", SH, 1, n, 1) \
    ROW(0x00182003, 0xFFFFFFFF, "Frame Primary Angle Vector", DS, 1, n, 1) \
    ROW(0x00182004, 0xFFFFFFFF, "Frame Secondary Angle Vector", DS, 1, n, 1) \
    ROW(0x00182005, 0xFFFFFFFF, "Slice Location Vector", DS, 1, n, 1) \
    ROW(0x00182006, 0xFFFFFFFF, "Display Window Label Vector", SH, 1, n, 1) \
    ROW(0x00182010, 0xFFFFFFFF, "Nominal Scanned Pixel Spacing", DS, 2, 2, 2) \
    ROW(0x00182020, 0xFFFFFFFF, "Digitizing Device Transport Direction", CS, 1, 1, 1) \
    ROW(0x00182030, 0xFFFFFFFF, "Rotation of Scanned Film", DS, 1, 1, 1) \
    ROW(0x00183100, 0xFFFFFFFF, "IVUS Acquisition", CS, 1, 1, 1) \
    ROW(0x00183101, 0xFFFFFFFF, "IVUS Pullback Rate", DS, 1, 1, 1) \
    ROW(0x00183102, 0xFFFFFFFF, "IVUS Gated Rate", DS, 1, 1, 1) \
    ROW(0x00183103, 0xFFFFFFFF, "IVUS Pullback Start Frame Number", IS, 1, 1, 1) \
    ROW(0x00183104, 0xFFFFFFFF, "IVUS Pullback Stop Frame Number", IS, 1, 1, 1) \
    ROW(0x00183105, 0xFFFFFFFF, "Lesion Number", IS, 1, n, 1) \
    ROW(0x00184000, 0xFFFFFFFF, "Acquisition Comments", LT, 1, 1, 1) \
    ROW(0x00185000, 0xFFFFFFFF, "Output Power", SH, 1, n, 1) \
    ROW(0x00185010, 0xFFFFFFFF, "Transducer Data", LO, 3, 3, 3) \
    ROW(0x00185012, 0xFFFFFFFF, "Focus Depth", DS, 1, 1, 1) \
    ROW(0x00185020, 0xFFFFFFFF, "Processing Function", LO, 1, 1, 1) \
    ROW(0x00185021, 0xFFFFFFFF, "Postprocessing Function", LO, 1, 1, 1) \
    ROW(0x00185022, 0xFFFFFFFF, "Mechanical Index", DS, 1, 1, 1) \
    ROW(0x00185024, 0xFFFFFFFF, "Bone Thermal Index", DS, 1, 1, 1) \
    ROW(0x00185026, 0xFFFFFFFF, "Cranial Thermal Index", DS, 1, 1, 1) \
    ROW(0x00185027, 0xFFFFFFFF, "Soft Tissue Thermal Index", DS, 1, 1, 1) \
    ROW(0x00185028, 0xFFFFFFFF, "Soft Tissue-focus Thermal Index", DS, 1, 1, 1) \
    ROW(0x00185029, 0xFFFFFFFF, "Soft Tissue-surface Thermal Index", DS, 1, 1, 1) \
    ROW(0x00185030, 0xFFFFFFFF, "Dynamic Range", DS, 1, 1, 1) \
    ROW(0x00185040, 0xFFFFFFFF, "Total Gain", DS, 1, 1, 1) \
    ROW(0x00185050, 0xFFFFFFFF, "Depth of Scan Field", IS, 1, 1, 1) \
    ROW(0x00185100, 0xFFFFFFFF, "Patient Position", CS, 1, 1, 1) \
    ROW(0x00185101, 0xFFFFFFFF, "View Position", CS, 1, 1, 1) \
    ROW(0x00185104, 0xFFFFFFFF, "Projection Eponymous Name Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00185210, 0xFFFFFFFF, "Image Transformation Matrix", DS, 6, 6, 6) \
    ROW(0x00185212, 0xFFFFFFFF, "Image Translation Vector", DS, 3, 3, 3) \
    ROW(0x00186000, 0xFFFFFFFF, "Sensitivity", DS, 1, 1, 1) \
    ROW(0x00186011, 0xFFFFFFFF, "Sequence of Ultrasound Regions", SQ, 1, 1, 1) \
    ROW(0x00186012, 0xFFFFFFFF, "Region Spatial Format", US, 1, 1, 1) \
    ROW(0x00186014, 0xFFFFFFFF, "Region Data Type", US, 1, 1, 1) \
    ROW(0x00186016, 0xFFFFFFFF, "Region Flags", UL, 1, 1, 1) \
    ROW(0x00186018, 0xFFFFFFFF, "Region Location Min X0", UL, 1, 1, 1) \
    ROW(0x0018601A, 0xFFFFFFFF, "Region Location Min Y0", UL, 1, 1, 1) \
    ROW(0x0018601C, 0xFFFFFFFF, "Region Location Max X1", UL, 1, 1, 1) \
    ROW(0x0018601E, 0xFFFFFFFF, "Region Location Max Y1", UL, 1, 1, 1) \
    ROW(0x00186020, 0xFFFFFFFF, "Reference Pixel X0", SL, 1, 1, 1) \
    ROW(0x00186022, 0xFFFFFFFF, "Reference Pixel Y0", SL, 1, 1, 1) \
    ROW(0x00186024, 0xFFFFFFFF, "Physical Units X Direction", US, 1, 1, 1) \
    ROW(0x00186026, 0xFFFFFFFF, "Physical Units Y Direction", US, 1, 1, 1) \
    ROW(0x00186028, 0xFFFFFFFF, "Reference Pixel Physical Value X", FD, 1, 1, 1) \
    ROW(0x0018602A, 0xFFFFFFFF, "Reference Pixel Physical Value Y", FD, 1, 1, 1) \
    ROW(0x0018602C, 0xFFFFFFFF, "Physical Delta X", FD, 1, 1, 1) \
    ROW(0x0018602E, 0xFFFFFFFF, "Physical Delta Y", FD, 1, 1, 1) \
    ROW(0x00186030, 0xFFFFFFFF, "Transducer Frequency", UL, 1, 1, 1) \
    ROW(0x00186031, 0xFFFFFFFF, "Transducer Type", CS, 1, 1, 1) \
    ROW(0x00186032, 0xFFFFFFFF, "Pulse Repetition Frequency", UL, 1, 1, 1) \
    ROW(0x00186034, 0xFFFFFFFF, "Doppler Correction Angle", FD, 1, 1, 1) \
    ROW(0x00186036, 0xFFFFFFFF, "Steering Angle", FD, 1, 1, 1) \
    ROW(0x00186038, 0xFFFFFFFF, "Doppler Sample Volume X Position (Retired)", UL, 1, 1, 1) \
    ROW(0x00186039, 0xFFFFFFFF, "Doppler Sample Volume X Position", SL, 1, 1, 1) \
    ROW(0x0018603A, 0xFFFFFFFF, "Doppler Sample Volume Y Position (Retired)", UL, 1, 1, 1) \
    ROW(0x0018603B, 0xFFFFFFFF, "Doppler Sample Volume Y Position", SL, 1, 1, 1) \
    ROW(0x0018603C, 0xFFFFFFFF, "TM-Line Position X0 (Retired)", UL, 1, 1, 1) \
    ROW(0x0018603D, 0xFFFFFFFF, "TM-Line Position X0", SL, 1, 1, 1) \
    ROW(0x0018603E, 0xFFFFFFFF, "TM-Line Position Y0 (Retired)", UL, 1, 1, 1) \
    ROW(0x0018603F, 0xFFFFFFFF, "TM-Line Position Y0", SL, 1, 1, 1) \
    ROW(0x00186040, 0xFFFFFFFF, "TM-Line Position X1 (Retired)", UL, 1, 1, 1) \
    ROW(0x00186041, 0xFFFFFFFF, "TM-Line Position X1", SL, 1, 1, 1) \
    ROW(0x00186042, 0xFFFFFFFF, "TM-Line Position Y1 (Retired)", UL, 1, 1, 1) \
    ROW(0x00186043, 0xFFFFFFFF, "TM-Line Position Y1", SL, 1, 1, 1) \
    ROW(0x00186044, 0xFFFFFFFF, "Pixel Component Organization", US, 1, 1, 1) \
    ROW(0x00186046, 0xFFFFFFFF, "Pixel Component Mask", UL, 1, 1, 1) \
    ROW(0x00186048, 0xFFFFFFFF, "Pixel Component Range Start", UL, 1, 1, 1) \
    ROW(0x0018604A, 0xFFFFFFFF, "Pixel Component Range Stop", UL, 1, 1, 1) \
    ROW(0x0018604C, 0xFFFFFFFF, "Pixel Component Physical Units", US, 1, 1, 1) \
    ROW(0x0018604E, 0xFFFFFFFF, "Pixel Component Data Type", US, 1, 1, 1) \
    ROW(0x00186050, 0xFFFFFFFF, "Number of Table Break Points", UL, 1, 1, 1) \
    ROW(0x00186052, 0xFFFFFFFF, "Table of X Break Points", UL, 1, n, 1) \
    ROW(0x00186054, 0xFFFFFFFF, "Table of Y Break Points", FD, 1, n, 1) \
    ROW(0x00186056, 0xFFFFFFFF, "Number of Table Entries", UL, 1, 1, 1) \
    ROW(0x00186058, 0xFFFFFFFF, "Table of Pixel Values", UL, 1, n, 1) \
    ROW(0x0018605A, 0xFFFFFFFF, "Table of Parameter Values", FL, 1, n, 1) \
    ROW(0x00186060, 0xFFFFFFFF, "R Wave Time Vector", FL, 1, n, 1) \
    ROW(0x00187000, 0xFFFFFFFF, "Detector Conditions Nominal Flag", CS, 1, 1, 1) \
    ROW(0x00187001, 0xFFFFFFFF, "Detector Temperature", DS, 1, 1, 1) \
    ROW(0x00187004, 0xFFFFFFFF, "Detector Type", CS, 1, 1, 1) \
    ROW(0x00187005, 0xFFFFFFFF, "Detector Configuration", CS, 1, 1, 1) \
    ROW(0x00187006, 0xFFFFFFFF, "Detector Description", LT, 1, 1, 1) \
    ROW(0x00187008, 0xFFFFFFFF, "Detector Mode", LT, 1, 1, 1) \
    ROW(0x0018700A, 0xFFFFFFFF, "Detector ID", SH, 1, 1, 1) \
    ROW(0x0018700C, 0xFFFFFFFF, "Date of Last Detector Calibration", DA, 1, 1, 1) \
    ROW(0x0018700E, 0xFFFFFFFF, "Time of Last Detector Calibration", TM, 1, 1, 1) \
    ROW(0x00187010, 0xFFFFFFFF, "Exposures on Detector Since Last Calibration", IS, 1, 1, 1) \
    ROW(0x00187011, 0xFFFFFFFF, "Exposures on Detector Since Manufactured", IS, 1, 1, 1) \
    ROW(0x00187012, 0xFFFFFFFF, "Detector Time Since Last Exposure", DS, 1, 1, 1) \
    ROW(0x00187014, 0xFFFFFFFF, "Detector Active Time", DS, 1, 1, 1) \
    ROW(0x00187016, 0xFFFFFFFF, "Detector Activation Offset From Exposure", DS, 1, 1, 1) \
    ROW(0x0018701A, 0xFFFFFFFF, "Detector Binning", DS, 2, 2, 2) \
    ROW(0x00187020, 0xFFFFFFFF, "Detector Element Physical Size", DS, 2, 2, 2) \
    ROW(0x00187022, 0xFFFFFFFF, "Detector Element Spacing", DS, 2, 2, 2) \
    ROW(0x00187024, 0xFFFFFFFF, "Detector Active Shape", CS, 1, 1, 1) \
    ROW(0x00187026, 0xFFFFFFFF, "Detector Active Dimension(s)", DS, 1, 2, 1) \
    ROW(0x00187028, 0xFFFFFFFF, "Detector Active Origin", DS, 2, 2, 2) \
    ROW(0x0018702A, 0xFFFFFFFF, "Detector Manufacturer Name", LO, 1, 1, 1) \
    ROW(0x0018702B, 0xFFFFFFFF, "Detector Manufacturer's Model Name", LO, 1, 1, 1) \
    ROW(0x00187030, 0xFFFFFFFF, "Field of View Origin", DS, 2, 2, 2) \
    ROW(0x00187032, 0xFFFFFFFF, "Field of View Rotation", DS, 1, 1, 1) \
    ROW(0x00187034, 0xFFFFFFFF, "Field of View Horizontal Flip", CS, 1, 1, 1) \
    ROW(0x00187040, 0xFFFFFFFF, "Grid Absorbing Material", LT, 1, 1, 1) \
    ROW(0x00187041, 0xFFFFFFFF, "Grid Spacing Material", LT, 1, 1, 1) \
    ROW(0x00187042, 0xFFFFFFFF, "Grid Thickness", DS, 1, 1, 1) \
    ROW(0x00187044, 0xFFFFFFFF, "Grid Pitch", DS, 1, 1, 1) \
    ROW(0x00187046, 0xFFFFFFFF, "Grid Aspect Ratio", IS, 2, 2, 2) \
    ROW(0x00187048, 0xFFFFFFFF, "Grid Period", DS, 1, 1, 1) \
    ROW(0x0018704C, 0xFFFFFFFF, "Grid Focal Distance", DS, 1, 1, 1) \
    ROW(0x00187050, 0xFFFFFFFF, "Filter Material", CS, 1, n, 1) \
    ROW(0x00187052, 0xFFFFFFFF, "Filter Thickness Minimum", DS, 1, n, 1) \
    ROW(0x00187054, 0xFFFFFFFF, "Filter Thickness Maximum", DS, 1, n, 1) \
    ROW(0x00187060, 0xFFFFFFFF, "Exposure Control Mode", CS, 1, 1, 1) \
    ROW(0x00187062, 0xFFFFFFFF, "Exposure Control Mode Description", LT, 1, 1, 1) \
    ROW(0x00187064, 0xFFFFFFFF, "Exposure Status", CS, 1, 1, 1) \
    ROW(0x00187065, 0xFFFFFFFF, "Phototimer Setting", DS, 1, 1, 1) \
    ROW(0x00188150, 0xFFFFFFFF, "Exposure Time in uS", DS, 1, 1, 1) \
    ROW(0x00188151, 0xFFFFFFFF, "X-Ray Tube Current in uA", DS, 1, 1, 1) \
    ROW(0x00189004, 0xFFFFFFFF, "Content Qualification", CS, 1, 1, 1) \
    ROW(0x00189005, 0xFFFFFFFF, "Pulse Sequence Name", SH, 1, 1, 1) \
    ROW(0x00189006, 0xFFFFFFFF, "MR Imaging Modifier Sequence", SQ, 1, 1, 1) \
    ROW(0x00189008, 0xFFFFFFFF, "Echo Pulse Sequence", CS, 1, 1, 1) \
    ROW(0x00189009, 0xFFFFFFFF, "Inversion Recovery", CS, 1, 1, 1) \
    ROW(0x00189010, 0xFFFFFFFF, "Flow Compensation", CS, 1, 1, 1) \
    ROW(0x00189011, 0xFFFFFFFF, "Multiple Spin Echo", CS, 1, 1, 1) \
    ROW(0x00189012, 0xFFFFFFFF, "Multi-planar Excitation", CS, 1, 1, 1) \
    ROW(0x00189014, 0xFFFFFFFF, "Phase Contrast", CS, 1, 1, 1) \
    ROW(0x00189015, 0xFFFFFFFF, "Time of Flight Contrast", CS, 1, 1, 1) \
    ROW(0x00189016, 0xFFFFFFFF, "Spoiling", CS, 1, 1, 1) \
    ROW(0x00189017, 0xFFFFFFFF, "Steady State Pulse Sequence", CS, 1, 1, 1) \
    ROW(0x00189018, 0xFFFFFFFF, "Echo Planar Pulse Sequence", CS, 1, 1, 1) \
    ROW(0x00189019, 0xFFFFFFFF, "Tag Angle First Axis", FD, 1, 1, 1) \
    ROW(0x00189020, 0xFFFFFFFF, "Magnetization Transfer", CS, 1, 1, 1) \
    ROW(0x00189021, 0xFFFFFFFF, "T2 Preparation", CS, 1, 1, 1) \
    ROW(0x00189022, 0xFFFFFFFF, "Blood Signal Nulling", CS, 1, 1, 1) \
    ROW(0x00189024, 0xFFFFFFFF, "Saturation Recovery", CS, 1, 1, 1) \
    ROW(0x00189025, 0xFFFFFFFF, "Spectrally Selected Suppression", CS, 1, 1, 1) \
    ROW(0x00189026, 0xFFFFFFFF, "Spectrally Selected Excitation", CS, 1, 1, 1) \
    ROW(0x00189027, 0xFFFFFFFF, "Spatial Pre-saturation", CS, 1, 1, 1) \
    ROW(0x00189028, 0xFFFFFFFF, "Tagging", CS, 1, 1, 1) \
    ROW(0x00189029, 0xFFFFFFFF, "Oversampling Phase", CS, 1, 1, 1) \
    ROW(0x00189030, 0xFFFFFFFF, "Tag Spacing First Dimension", FD, 1, 1, 1) \
    ROW(0x00189032, 0xFFFFFFFF, "Geometry of k-Space Traversal", CS, 1, 1, 1) \
    ROW(0x00189033, 0xFFFFFFFF, "Segmented k-Space Traversal", CS, 1, 1, 1) \
    ROW(0x00189034, 0xFFFFFFFF, "Rectilinear Phase Encode Reordering", CS, 1, 1, 1) \
    ROW(0x00189035, 0xFFFFFFFF, "Tag Thickness", FD, 1, 1, 1) \
    ROW(0x00189036, 0xFFFFFFFF, "Partial Fourier Direction", CS, 1, 1, 1) \
    ROW(0x00189037, 0xFFFFFFFF, "Cardiac Synchronization Technique", CS, 1, 1, 1) \
    ROW(0x00189041, 0xFFFFFFFF, "Receive Coil Manufacturer Name", LO, 1, 1, 1) \
    ROW(0x00189042, 0xFFFFFFFF, "MR Receive Coil Sequence", SQ, 1, 1, 1) \
    ROW(0x00189043, 0xFFFFFFFF, "Receive Coil Type", CS, 1, 1, 1) \
    ROW(0x00189044, 0xFFFFFFFF, "Quadrature Receive Coil", CS, 1, 1, 1) \
    ROW(0x00189045, 0xFFFFFFFF, "Multi-Coil Definition Sequence", SQ, 1, 1, 1) \
    ROW(0x00189046, 0xFFFFFFFF, "Multi-Coil Configuration", LO, 1, 1, 1) \
    ROW(0x00189047, 0xFFFFFFFF, "Multi-Coil Element Name", SH, 1, 1, 1) \
    ROW(0x00189048, 0xFFFFFFFF, "Multi-Coil Element Used", CS, 1, 1, 1) \
    ROW(0x00189049, 0xFFFFFFFF, "MR Transmit Coil Sequence", SQ, 1, 1, 1) \
    ROW(0x00189050, 0xFFFFFFFF, "Transmit Coil Manufacturer Name", LO, 1, 1, 1) \
    ROW(0x00189051, 0xFFFFFFFF, "Transmit Coil Type", CS, 1, 1, 1) \
    ROW(0x00189052, 0xFFFFFFFF, "Spectral Width", FD, 1, 2, 1) \
    ROW(0x00189053, 0xFFFFFFFF, "Chemical Shift Reference", FD, 1, 2, 1) \
    ROW(0x00189054, 0xFFFFFFFF, "Volume Localization Technique", CS, 1, 1, 1) \
    ROW(0x00189058, 0xFFFFFFFF, "MR Acquisition Frequency Encoding Steps", US, 1, 1, 1) \
    ROW(0x00189059, 0xFFFFFFFF, "De-coupling", CS, 1, 1, 1) \
    ROW(0x00189060, 0xFFFFFFFF, "De-coupled Nucleus", CS, 1, 2, 1) \
    ROW(0x00189061, 0xFFFFFFFF, "De-coupling Frequency", FD, 1, 2, 1) \
    ROW(0x00189062, 0xFFFFFFFF, "De-coupling Method", CS, 1, 1, 1) \
    ROW(0x00189063, 0xFFFFFFFF, "De-coupling Chemical Shift Reference", FD, 1, 2, 1) \
    ROW(0x00189064, 0xFFFFFFFF, "k-space Filtering", CS, 1, 1, 1) \
    ROW(0x00189065, 0xFFFFFFFF, "Time Domain Filtering", CS, 1, 2, 1) \
    ROW(0x00189066, 0xFFFFFFFF, "Number of Zero fills", US, 1, 2, 1) \
    ROW(0x00189067, 0xFFFFFFFF, "Baseline Correction", CS, 1, 1, 1) \
    ROW(0x00189069, 0xFFFFFFFF, "Parallel Reduction Factor In-plane", FD, 1, 1, 1) \
    ROW(0x00189070, 0xFFFFFFFF, "Cardiac R-R Interval Specified", FD, 1, 1, 1) \
    ROW(0x00189073, 0xFFFFFFFF, "Acquisition Duration", FD, 1, 1, 1) \
    ROW(0x00189074, 0xFFFFFFFF, "Frame Acquisition DateTime", DT, 1, 1, 1) \
    ROW(0x00189075, 0xFFFFFFFF, "Diffusion Directionality", CS, 1, 1, 1) \
    ROW(0x00189076, 0xFFFFFFFF, "Diffusion Gradient Direction Sequence", SQ, 1, 1, 1) \
    ROW(0x00189077, 0xFFFFFFFF, "Parallel Acquisition", CS, 1, 1, 1) \
    ROW(0x00189078, 0xFFFFFFFF, "Parallel Acquisition Technique", CS, 1, 1, 1) \
    ROW(0x00189079, 0xFFFFFFFF, "Inversion Times", FD, 1, n, 1) \
    ROW(0x00189080, 0xFFFFFFFF, "Metabolite Map Description", ST, 1, 1, 1) \
    ROW(0x00189081, 0xFFFFFFFF, "Partial Fourier", CS, 1, 1, 1) \
    ROW(0x00189082, 0xFFFFFFFF, "Effective Echo Time", FD, 1, 1, 1) \
    ROW(0x00189083, 0xFFFFFFFF, "Metabolite Map Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00189084, 0xFFFFFFFF, "Chemical Shift Sequence", SQ, 1, 1, 1) \
    ROW(0x00189085, 0xFFFFFFFF, "Cardiac Signal Source", CS, 1, 1, 1) \
    ROW(0x00189087, 0xFFFFFFFF, "Diffusion b-value", FD, 1, 1, 1) \
    ROW(0x00189089, 0xFFFFFFFF, "Diffusion Gradient Orientation", FD, 3, 3, 3) \
    ROW(0x00189090, 0xFFFFFFFF, "Velocity Encoding Direction", FD, 3, 3, 3) \
    ROW(0x00189091, 0xFFFFFFFF, "Velocity Encoding Minimum Value", FD, 1, 1, 1) \
    ROW(0x00189093, 0xFFFFFFFF, "Number of k-Space Trajectories", US, 1, 1, 1) \
    ROW(0x00189094, 0xFFFFFFFF, "Coverage of k-Space", CS, 1, 1, 1) \
    ROW(0x00189095, 0xFFFFFFFF, "Spectroscopy Acquisition Phase Rows", UL, 1, 1, 1) \
    ROW(0x00189096, 0xFFFFFFFF, "Parallel Reduction Factor In-plane (Retired)", FD, 1, 1, 1) \
    ROW(0x00189098, 0xFFFFFFFF, "Transmitter Frequency", FD, 1, 2, 1) \
    ROW(0x00189100, 0xFFFFFFFF, "Resonant Nucleus", CS, 1, 2, 1) \
    ROW(0x00189101, 0xFFFFFFFF, "Frequency Correction", CS, 1, 1, 1) \
    ROW(0x00189103, 0xFFFFFFFF, "MR Spectroscopy FOV/Geometry Sequence", SQ, 1, 1, 1) \
    ROW(0x00189104, 0xFFFFFFFF, "Slab Thickness", FD, 1, 1, 1) \
    ROW(0x00189105, 0xFFFFFFFF, "Slab Orientation", FD, 3, 3, 3) \
    ROW(0x00189106, 0xFFFFFFFF, "Mid Slab Position", FD, 3, 3, 3) \
    ROW(0x00189107, 0xFFFFFFFF, "MR Spatial Saturation Sequence", SQ, 1, 1, 1) \
    ROW(0x00189112, 0xFFFFFFFF, "MR Timing and Related Parameters Sequence", SQ, 1, 1, 1) \
    ROW(0x00189114, 0xFFFFFFFF, "MR Echo Sequence", SQ, 1, 1, 1) \
    ROW(0x00189115, 0xFFFFFFFF, "MR Modifier Sequence", SQ, 1, 1, 1) \
    ROW(0x00189117, 0xFFFFFFFF, "MR Diffusion Sequence", SQ, 1, 1, 1) \
    ROW(0x00189118, 0xFFFFFFFF, "Cardiac Synchronization Sequence", SQ, 1, 1, 1) \
    ROW(0x00189119, 0xFFFFFFFF, "MR Averages Sequence", SQ, 1, 1, 1) \
    ROW(0x00189125, 0xFFFFFFFF, "MR FOV/Geometry Sequence", SQ, 1, 1, 1) \
    ROW(0x00189126, 0xFFFFFFFF, "Volume Localization Sequence", SQ, 1, 1, 1) \
    ROW(0x00189127, 0xFFFFFFFF, "Spectroscopy Acquisition Data Columns", UL, 1, 1, 1) \
    ROW(0x00189147, 0xFFFFFFFF, "Diffusion Anisotropy Type", CS, 1, 1, 1) \
    ROW(0x00189151, 0xFFFFFFFF, "Frame Reference DateTime", DT, 1, 1, 1) \
    ROW(0x00189152, 0xFFFFFFFF, "MR Metabolite Map Sequence", SQ, 1, 1, 1) \
    ROW(0x00189155, 0xFFFFFFFF, "Parallel Reduction Factor out-of-plane", FD, 1, 1, 1) \
    ROW(0x00189159, 0xFFFFFFFF, "Spectroscopy Acquisition Out-of-plane Phase Steps", UL, 1, 1, 1) \
    ROW(0x00189166, 0xFFFFFFFF, "Bulk Motion Status", CS, 1, 1, 1) \
    ROW(0x00189168, 0xFFFFFFFF, "Parallel Reduction Factor Second In-plane", FD, 1, 1, 1) \
    ROW(0x00189169, 0xFFFFFFFF, "Cardiac Beat Rejection Technique", CS, 1, 1, 1) \
    ROW(0x00189170, 0xFFFFFFFF, "Respiratory Motion Compensation Technique", CS, 1, 1, 1) \
    ROW(0x00189171, 0xFFFFFFFF, "Respiratory Signal Source", CS, 1, 1, 1) \
    ROW(0x00189172, 0xFFFFFFFF, "Bulk Motion Compensation Technique", CS, 1, 1, 1) \
    ROW(0x00189173, 0xFFFFFFFF, "Bulk Motion Signal Source", CS, 1, 1, 1) \
    ROW(0x00189174, 0xFFFFFFFF, "Applicable Safety Standard Agency", CS, 1, 1, 1) \
    ROW(0x00189175, 0xFFFFFFFF, "Applicable Safety Standard Description", LO, 1, 1, 1) \
    ROW(0x00189176, 0xFFFFFFFF, "Operating Mode Sequence", SQ, 1, 1, 1) \
    ROW(0x00189177, 0xFFFFFFFF, "Operating Mode Type", CS, 1, 1, 1) \
    ROW(0x00189178, 0xFFFFFFFF, "Operating Mode", CS, 1, 1, 1) \
    ROW(0x00189179, 0xFFFFFFFF, "Specific Absorption Rate Definition", CS, 1, 1, 1) \
    ROW(0x00189180, 0xFFFFFFFF, "Gradient Output Type", CS, 1, 1, 1) \
    ROW(0x00189181, 0xFFFFFFFF, "Specific Absorption Rate Value", FD, 1, 1, 1) \
    ROW(0x00189182, 0xFFFFFFFF, "Gradient Output", FD, 1, 1, 1) \
    ROW(0x00189183, 0xFFFFFFFF, "Flow Compensation Direction", CS, 1, 1, 1) \
    ROW(0x00189184, 0xFFFFFFFF, "Tagging Delay", FD, 1, 1, 1) \
    ROW(0x00189195, 0xFFFFFFFF, "Chemical Shifts Minimum Integration Limit in Hz", FD, 1, 1, 1) \
    ROW(0x00189196, 0xFFFFFFFF, "Chemical Shifts Maximum Integration Limit in Hz", FD, 1, 1, 1) \
    ROW(0x00189197, 0xFFFFFFFF, "MR Velocity Encoding Sequence", SQ, 1, 1, 1) \
    ROW(0x00189198, 0xFFFFFFFF, "First Order Phase Correction", CS, 1, 1, 1) \
    ROW(0x00189199, 0xFFFFFFFF, "Water Referenced Phase Correction", CS, 1, 1, 1) \
    ROW(0x00189200, 0xFFFFFFFF, "MR Spectroscopy Acquisition Type", CS, 1, 1, 1) \
    ROW(0x00189214, 0xFFFFFFFF, "Respiratory Cycle Position", CS, 1, 1, 1) \
    ROW(0x00189217, 0xFFFFFFFF, "Velocity Encoding Maximum Value", FD, 1, 1, 1) \
    ROW(0x00189218, 0xFFFFFFFF, "Tag Spacing Second Dimension", FD, 1, 1, 1) \
    ROW(0x00189219, 0xFFFFFFFF, "Tag Angle Second Axis", SS, 1, 1, 1) \
    ROW(0x00189220, 0xFFFFFFFF, "Frame Acquisition Duration", FD, 1, 1, 1) \
    ROW(0x00189226, 0xFFFFFFFF, "MR Image Frame Type Sequence", SQ, 1, 1, 1) \
    ROW(0x00189227, 0xFFFFFFFF, "MR Spectroscopy Frame Type Sequence", SQ, 1, 1, 1) \
    ROW(0x00189231, 0xFFFFFFFF, "MR Acquisition Phase Encoding Steps in-plane", US, 1, 1, 1) \
    ROW(0x00189232, 0xFFFFFFFF, "MR Acquisition Phase Encoding Steps out-of-plane", US, 1, 1, 1) \
    ROW(0x00189234, 0xFFFFFFFF, "Spectroscopy Acquisition Phase Columns", UL, 1, 1, 1) \
    ROW(0x00189236, 0xFFFFFFFF, "Cardiac Cycle Position", CS, 1, 1, 1) \
    ROW(0x00189239, 0xFFFFFFFF, "Specific Absorption Rate Sequence", SQ, 1, 1, 1) \
    ROW(0x00189240, 0xFFFFFFFF, "RF Echo Train Length", US, 1, 1, 1) \
    ROW(0x00189241, 0xFFFFFFFF, "Gradient Echo Train Length", US, 1, 1, 1) \
    ROW(0x00189295, 0xFFFFFFFF, "Chemical Shifts Minimum Integration Limit in ppm", FD, 1, 1, 1) \
    ROW(0x00189296, 0xFFFFFFFF, "Chemical Shifts Maximum Integration Limit in ppm", FD, 1, 1, 1) \
    ROW(0x00189301, 0xFFFFFFFF, "CT Acquisition Type Sequence", SQ, 1, 1, 1) \
    ROW(0x00189302, 0xFFFFFFFF, "Acquisition Type", CS, 1, 1, 1) \
    ROW(0x00189303, 0xFFFFFFFF, "Tube Angle", FD, 1, 1, 1) \
    ROW(0x00189304, 0xFFFFFFFF, "CT Acquisition Details Sequence", SQ, 1, 1, 1) \
    ROW(0x00189305, 0xFFFFFFFF, "Revolution Time", FD, 1, 1, 1) \
    ROW(0x00189306, 0xFFFFFFFF, "Single Collimation Width", FD, 1, 1, 1) \
    ROW(0x00189307, 0xFFFFFFFF, "Total Collimation Width", FD, 1, 1, 1) \
    ROW(0x00189308, 0xFFFFFFFF, "CT Table Dynamics Sequence", SQ, 1, 1, 1) \
    ROW(0x00189309, 0xFFFFFFFF, "Table Speed", FD, 1, 1, 1) \
    ROW(0x00189310, 0xFFFFFFFF, "Table Feed per Rotation", FD, 1, 1, 1) \
    ROW(0x00189311, 0xFFFFFFFF, "Spiral Pitch Factor", FD, 1, 1, 1) \
    ROW(0x00189312, 0xFFFFFFFF, "CT Geometry Sequence", SQ, 1, 1, 1) \
    ROW(0x00189313, 0xFFFFFFFF, "Data Collection Center (Patient)", FD, 3, 3, 3) \
    ROW(0x00189314, 0xFFFFFFFF, "CT Reconstruction Sequence", SQ, 1, 1, 1) \
    ROW(0x00189315, 0xFFFFFFFF, "Reconstruction Algorithm", CS, 1, 1, 1) \
    ROW(0x00189316, 0xFFFFFFFF, "Convolution Kernel Group", CS, 1, 1, 1) \
    ROW(0x00189317, 0xFFFFFFFF, "Reconstruction Field of View", FD, 2, 2, 2) \
    ROW(0x00189318, 0xFFFFFFFF, "Reconstruction Target Center (Patient)", FD, 3, 3, 3) \
    ROW(0x00189319, 0xFFFFFFFF, "Reconstruction Angle", FD, 1, 1, 1) \
    ROW(0x00189320, 0xFFFFFFFF, "Image Filter", SH, 1, 1, 1) \
    ROW(0x00189321, 0xFFFFFFFF, "CT Exposure Sequence", SQ, 1, 1, 1) \
    ROW(0x00189322, 0xFFFFFFFF, "Reconstruction Pixel Spacing", FD, 2, 2, 2) \
    ROW(0x00189323, 0xFFFFFFFF, "Exposure Modulation Type", CS, 1, 1, 1) \
    ROW(0x00189324, 0xFFFFFFFF, "Estimated Dose Saving", FD, 1, 1, 1) \
    ROW(0x00189325, 0xFFFFFFFF, "CT X-Ray Details Sequence", SQ, 1, 1, 1) \
    ROW(0x00189326, 0xFFFFFFFF, "CT Position Sequence", SQ, 1, 1, 1) \
    ROW(0x00189327, 0xFFFFFFFF, "Table Position", FD, 1, 1, 1) \
    ROW(0x00189328, 0xFFFFFFFF, "Exposure Time in ms", FD, 1, 1, 1) \
    ROW(0x00189329, 0xFFFFFFFF, "CT Image Frame Type Sequence", SQ, 1, 1, 1) \
    ROW(0x00189330, 0xFFFFFFFF, "X-Ray Tube Current in mA", FD, 1, 1, 1) \
    ROW(0x00189332, 0xFFFFFFFF, "Exposure in mAs", FD, 1, 1, 1) \
    ROW(0x00189333, 0xFFFFFFFF, "Constant Volume Flag", CS, 1, 1, 1) \
    ROW(0x00189334, 0xFFFFFFFF, "Fluoroscopy Flag", CS, 1, 1, 1) \
    ROW(0x00189335, 0xFFFFFFFF, "Distance Source to Data Collection Center", FD, 1, 1, 1) \
    ROW(0x00189337, 0xFFFFFFFF, "Contrast/Bolus Agent Number", US, 1, 1, 1) \
    ROW(0x00189338, 0xFFFFFFFF, "Contrast/Bolus Ingredient Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00189340, 0xFFFFFFFF, "Contrast Administration Profile Sequence", SQ, 1, 1, 1) \
    ROW(0x00189341, 0xFFFFFFFF, "Contrast/Bolus Usage Sequence", SQ, 1, 1, 1) \
    ROW(0x00189342, 0xFFFFFFFF, "Contrast/Bolus Agent Administered", CS, 1, 1, 1) \
    ROW(0x00189343, 0xFFFFFFFF, "Contrast/Bolus Agent Detected", CS, 1, 1, 1) \
    ROW(0x00189344, 0xFFFFFFFF, "Contrast/Bolus Agent Phase", CS, 1, 1, 1) \
    ROW(0x00189345, 0xFFFFFFFF, "CTDIvol", FD, 1, 1, 1) \
    ROW(0x0018A001, 0xFFFFFFFF, "Contributing Equipment Sequence", SQ, 1, 1, 1) \
    ROW(0x0018A002, 0xFFFFFFFF, "Contribution Date Time", DT, 1, 1, 1) \
    ROW(0x0018A003, 0xFFFFFFFF, "Contribution Description", ST, 1, 1, 1) \
    ROW(0x0020000D, 0xFFFFFFFF, "Study Instance UID", UI, 1, 1, 1) \
    ROW(0x0020000E, 0xFFFFFFFF, "Series Instance UID", UI, 1, 1, 1) \
    ROW(0x00200010, 0xFFFFFFFF, "Study ID", SH, 1, 1, 1) \
    ROW(0x00200011, 0xFFFFFFFF, "Series Number", IS, 1, 1, 1) \
    ROW(0x00200012, 0xFFFFFFFF, "Acquisition Number", IS, 1, 1, 1) \
    ROW(0x00200013, 0xFFFFFFFF, "Instance Number", IS, 1, 1, 1) \
    ROW(0x00200014, 0xFFFFFFFF, "Isotope Number", IS, 1, 1, 1) \
    ROW(0x00200015, 0xFFFFFFFF, "Phase Number", IS, 1, 1, 1) \
    ROW(0x00200016, 0xFFFFFFFF, "Interval Number", IS, 1, 1, 1) \
    ROW(0x00200017, 0xFFFFFFFF, "Time Slot Number", IS, 1, 1, 1) \
    ROW(0x00200018, 0xFFFFFFFF, "Angle Number", IS, 1, 1, 1) \
    ROW(0x00200019, 0xFFFFFFFF, "Item Number", IS, 1, 1, 1) \
    ROW(0x00200020, 0xFFFFFFFF, "Patient Orientation", CS, 2, 2, 2) \
    ROW(0x00200022, 0xFFFFFFFF, "Overlay Number", IS, 1, 1, 1) \
    ROW(0x00200024, 0xFFFFFFFF, "Curve Number", IS, 1, 1, 1) \
    ROW(0x00200026, 0xFFFFFFFF, "Lookup Table Number", IS, 1, 1, 1) \
    ROW(0x00200030, 0xFFFFFFFF, "Image Position", DS, 3, 3, 3) \
    ROW(0x00200032, 0xFFFFFFFF, "Image Position (Patient)", DS, 3, 3, 3) \
    ROW(0x00200035, 0xFFFFFFFF, "Image Orientation", DS, 6, 6, 6) \
    ROW(0x00200037, 0xFFFFFFFF, "Image Orientation (Patient)", DS, 6, 6, 6) \
    ROW(0x00200050, 0xFFFFFFFF, "Location", DS, 1, 1, 1) \
    ROW(0x00200052, 0xFFFFFFFF, "Frame of Reference UID", UI, 1, 1, 1) \
    ROW(0x00200060, 0xFFFFFFFF, "Laterality", CS, 1, 1, 1) \
    ROW(0x00200062, 0xFFFFFFFF, "Image Laterality", CS, 1, 1, 1) \
    ROW(0x00200070, 0xFFFFFFFF, "Image Geometry Type", LO, 1, 1, 1) \
    ROW(0x00200080, 0xFFFFFFFF, "Masking Image", CS, 1, n, 1) \
    ROW(0x00200100, 0xFFFFFFFF, "Temporal Position Identifier", IS, 1, 1, 1) \
    ROW(0x00200105, 0xFFFFFFFF, "Number of Temporal Positions", IS, 1, 1, 1) \
    ROW(0x00200110, 0xFFFFFFFF, "Temporal Resolution", DS, 1, 1, 1) \
    ROW(0x00200200, 0xFFFFFFFF, "Synchronization Frame of Reference UID", UI, 1, 1, 1) \
    ROW(0x00201000, 0xFFFFFFFF, "Series in Study", IS, 1, 1, 1) \
    ROW(0x00201001, 0xFFFFFFFF, "Acquisitions in Series", IS, 1, 1, 1) \
    ROW(0x00201002, 0xFFFFFFFF, "Images in Acquisition", IS, 1, 1, 1) \
    ROW(0x00201003, 0xFFFFFFFF, "Images in Series", IS, 1, 1, 1) \
    ROW(0x00201004, 0xFFFFFFFF, "Acquisitions in Study", IS, 1, 1, 1) \
    ROW(0x00201005, 0xFFFFFFFF, "Images in Study", IS, 1, 1, 1) \
    ROW(0x00201020, 0xFFFFFFFF, "Reference", CS, 1, n, 1) \
    ROW(0x00201040, 0xFFFFFFFF, "Position Reference Indicator", LO, 1, 1, 1) \
    ROW(0x00201041, 0xFFFFFFFF, "Slice Location", DS, 1, 1, 1) \
    ROW(0x00201070, 0xFFFFFFFF, "Other Study Numbers", IS, 1, n, 1) \
    ROW(0x00201200, 0xFFFFFFFF, "Number of Patient Related Studies", IS, 1, 1, 1) \
    ROW(0x00201202, 0xFFFFFFFF, "Number of Patient Related Series", IS, 1, 1, 1) \
    ROW(0x00201204, 0xFFFFFFFF, "Number of Patient Related Instances", IS, 1, 1, 1) \
    ROW(0x00201206, 0xFFFFFFFF, "Number of Study Related Series", IS, 1, 1, 1) \
    ROW(0x00201208, 0xFFFFFFFF, "Number of Study Related Instances", IS, 1, 1, 1) \
    ROW(0x00201209, 0xFFFFFFFF, "Number of Series Related Instances", IS, 1, 1, 1) \
    ROW(0x00203401, 0xFFFFFFFF, "Modifying Device ID", CS, 1, 1, 1) \
    ROW(0x00203402, 0xFFFFFFFF, "Modified Image ID", CS, 1, 1, 1) \
    ROW(0x00203403, 0xFFFFFFFF, "Modified Image Date", DA, 1, 1, 1) \
    ROW(0x00203404, 0xFFFFFFFF, "Modifying Device Manufacturer", LO, 1, 1, 1) \
    ROW(0x00203405, 0xFFFFFFFF, "Modified Image Time", TM, 1, 1, 1) \
    ROW(0x00203406, 0xFFFFFFFF, "Modified Image Description", LO, 1, 1, 1) \
    ROW(0x00203100, 0xFFFFFF00, "Source Image IDs (Retired)", CS, 1, n, 1) \
    ROW(0x00204000, 0xFFFFFFFF, "Image Comments", LT, 1, 1, 1) \
    ROW(0x00205000, 0xFFFFFFFF, "Original Image Identification", AT, 1, n, 1) \
    ROW(0x00205002, 0xFFFFFFFF, "Original Image Identification Nomenclature", CS, 1, n, 1) \
    ROW(0x00209056, 0xFFFFFFFF, "Stack ID", SH, 1, 1, 1) \
    ROW(0x00209057, 0xFFFFFFFF, "In-Stack Position Number", UL, 1, 1, 1) \
    ROW(0x00209071, 0xFFFFFFFF, "Frame Anatomy Sequence", SQ, 1, 1, 1) \
    ROW(0x00209072, 0xFFFFFFFF, "Frame Laterality", CS, 1, 1, 1) \
    ROW(0x00209111, 0xFFFFFFFF, "Frame Content Sequence", SQ, 1, 1, 1) \
    ROW(0x00209113, 0xFFFFFFFF, "Plane Position Sequence", SQ, 1, 1, 1) \
    ROW(0x00209116, 0xFFFFFFFF, "Plane Orientation Sequence", SQ, 1, 1, 1) \
    ROW(0x00209128, 0xFFFFFFFF, "Temporal Position Index", UL, 1, 1, 1) \
    ROW(0x00209153, 0xFFFFFFFF, "Nominal Cardiac Trigger Delay Time", FD, 1, 1, 1) \
    ROW(0x00209156, 0xFFFFFFFF, "Frame Acquisition Number", US, 1, 1, 1) \
    ROW(0x00209157, 0xFFFFFFFF, "Dimension Index Values", UL, 1, n, 1) \
    ROW(0x00209158, 0xFFFFFFFF, "Frame Comments", LT, 1, 1, 1) \
    ROW(0x00209161, 0xFFFFFFFF, "Concatenation UID", UI, 1, 1, 1) \
    ROW(0x00209162, 0xFFFFFFFF, "In-concatenation Number", US, 1, 1, 1) \
    ROW(0x00209163, 0xFFFFFFFF, "In-concatenation Total Number", US, 1, 1, 1) \
    ROW(0x00209164, 0xFFFFFFFF, "Dimension Organization UID", UI, 1, 1, 1) \
    ROW(0x00209165, 0xFFFFFFFF, "Dimension Index Pointer", AT, 1, 1, 1) \
    ROW(0x00209167, 0xFFFFFFFF, "Functional Group Pointer", AT, 1, 1, 1) \
    ROW(0x00209213, 0xFFFFFFFF, "Dimension Index Private Creator", LO, 1, 1, 1) \
    ROW(0x00209221, 0xFFFFFFFF, "Dimension Organization Sequence", SQ, 1, 1, 1) \
    ROW(0x00209222, 0xFFFFFFFF, "Dimension Index Sequence", SQ, 1, 1, 1) \
    ROW(0x00209228, 0xFFFFFFFF, "Concatenation Frame Offset Number", UL, 1, 1, 1) \
    ROW(0x00209238, 0xFFFFFFFF, "Functional Group Private Creator", LO, 1, 1, 1) \
    ROW(0x00220001, 0xFFFFFFFF, "Light Path Filter Pass-Through Wavelength", US, 1, 1, 1) \
    ROW(0x00220002, 0xFFFFFFFF, "Light Path Filter Pass Band", US, 2, 2, 2) \
    ROW(0x00220003, 0xFFFFFFFF, "Image Path Filter Pass-Through Wavelength", US, 1, 1, 1) \
    ROW(0x00220004, 0xFFFFFFFF, "Image Path Filter Pass Band", US, 2, 2, 2) \
    ROW(0x00220005, 0xFFFFFFFF, "Patient Eye Movement Commanded", CS, 1, 1, 1) \
    ROW(0x00220006, 0xFFFFFFFF, "Patient Eye Movement Command Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00220007, 0xFFFFFFFF, "Spherical Lens Power", FL, 1, 1, 1) \
    ROW(0x00220008, 0xFFFFFFFF, "Cylinder Lens Power", FL, 1, 1, 1) \
    ROW(0x00220009, 0xFFFFFFFF, "Cylinder Axis", FL, 1, 1, 1) \
    ROW(0x0022000A, 0xFFFFFFFF, "Emmetropic Magnification", FL, 1, 1, 1) \
    ROW(0x0022000B, 0xFFFFFFFF, "Intra Ocular Pressure", FL, 1, 1, 1) \
    ROW(0x0022000C, 0xFFFFFFFF, "Horizontal Field of View", FL, 1, 1, 1) \
    ROW(0x0022000D, 0xFFFFFFFF, "Pupil Dilated", CS, 1, 1, 1) \
    ROW(0x0022000E, 0xFFFFFFFF, "Degree of Dilation", FL, 1, 1, 1) \
    ROW(0x00220010, 0xFFFFFFFF, "Stereo Baseline Angle", FL, 1, 1, 1) \
    ROW(0x00220011, 0xFFFFFFFF, "Stereo Baseline Displacement", FL, 1, 1, 1) \
    ROW(0x00220012, 0xFFFFFFFF, "Stereo Horizontal Pixel Offset", FL, 1, 1, 1) \
    ROW(0x00220013, 0xFFFFFFFF, "Stereo Vertical Pixel Offset", FL, 1, 1, 1) \
    ROW(0x00220014, 0xFFFFFFFF, "Stereo Rotation", FL, 1, 1, 1) \
    ROW(0x00220015, 0xFFFFFFFF, "Acquisition Device Type Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00220016, 0xFFFFFFFF, "Illumination Type Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00220017, 0xFFFFFFFF, "Light Path Filter Type Stack Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00220018, 0xFFFFFFFF, "Image Path Filter Type Stack Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00220019, 0xFFFFFFFF, "Lenses Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0022001A, 0xFFFFFFFF, "Channel Description Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0022001B, 0xFFFFFFFF, "Refractive State Sequence", SQ, 1, 1, 1) \
    ROW(0x0022001C, 0xFFFFFFFF, "Mydriatic Agent Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0022001D, 0xFFFFFFFF, "Relative Image Position Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00220020, 0xFFFFFFFF, "Stereo Pairs Sequence", SQ, 1, 1, 1) \
    ROW(0x00220021, 0xFFFFFFFF, "Left Image Sequence", SQ, 1, 1, 1) \
    ROW(0x00220022, 0xFFFFFFFF, "Right Image Sequence", SQ, 1, 1, 1) \
    ROW(0x00280002, 0xFFFFFFFF, "Samples per Pixel", US, 1, 1, 1) \
    ROW(0x00280003, 0xFFFFFFFF, "Samples per Pixel Used", US, 1, 1, 1) \
    ROW(0x00280004, 0xFFFFFFFF, "Photometric Interpretation", CS, 1, 1, 1) \
    ROW(0x00280005, 0xFFFFFFFF, "Image Dimensions", US, 1, 1, 1) \
    ROW(0x00280006, 0xFFFFFFFF, "Planar Configuration", US, 1, 1, 1) \
    ROW(0x00280008, 0xFFFFFFFF, "Number of Frames", IS, 1, 1, 1) \
    ROW(0x00280009, 0xFFFFFFFF, "Frame Increment Pointer", AT, 1, n, 1) \
    ROW(0x0028000A, 0xFFFFFFFF, "Frame Dimension Pointer", AT, 1, n, 1) \
    ROW(0x00280010, 0xFFFFFFFF, "Rows", US, 1, 1, 1) \
    ROW(0x00280011, 0xFFFFFFFF, "Columns", US, 1, 1, 1) \
    ROW(0x00280012, 0xFFFFFFFF, "Planes", US, 1, 1, 1) \
    ROW(0x00280014, 0xFFFFFFFF, "Ultrasound Color Data Present", US, 1, 1, 1) \
    ROW(0x00280030, 0xFFFFFFFF, "Pixel Spacing", DS, 2, 2, 2) \
    ROW(0x00280031, 0xFFFFFFFF, "Zoom Factor", DS, 2, 2, 2) \
    ROW(0x00280032, 0xFFFFFFFF, "Zoom Center", DS, 2, 2, 2) \
    ROW(0x00280034, 0xFFFFFFFF, "Pixel Aspect Ratio", IS, 2, 2, 2) \
    ROW(0x00280040, 0xFFFFFFFF, "Image Format", CS, 1, 1, 1) \
    ROW(0x00280050, 0xFFFFFFFF, "Manipulated Image", LO, 1, n, 1) \
    ROW(0x00280051, 0xFFFFFFFF, "Corrected Image", CS, 1, n, 1) \
    ROW(0x0028005F, 0xFFFFFFFF, "Compression Recognition Code", LO, 1, 1, 1) \
    ROW(0x00280060, 0xFFFFFFFF, "Compression Code", CS, 1, 1, 1) \
    ROW(0x00280061, 0xFFFFFFFF, "Compression Originator", SH, 1, 1, 1) \
    ROW(0x00280062, 0xFFFFFFFF, "Compression Label", LO, 1, 1, 1) \
    ROW(0x00280063, 0xFFFFFFFF, "Compression Description", SH, 1, 1, 1) \
    ROW(0x00280065, 0xFFFFFFFF, "Compression Sequence", CS, 1, n, 1) \
    ROW(0x00280066, 0xFFFFFFFF, "Compression Step Pointers", AT, 1, n, 1) \
    ROW(0x00280068, 0xFFFFFFFF, "Repeat Interval", US, 1, 1, 1) \
    ROW(0x00280069, 0xFFFFFFFF, "Bits Grouped", US, 1, 1, 1) \
    ROW(0x00280070, 0xFFFFFFFF, "Perimeter Table", US, 1, n, 1) \
    ROW(0x00280071, 0xFFFFFFFF, "Perimeter Value", US, 1, 1, 1) \
    ROW(0x00280080, 0xFFFFFFFF, "Predictor Rows", US, 1, 1, 1) \
    ROW(0x00280081, 0xFFFFFFFF, "Predictor Columns", US, 1, 1, 1) \
    ROW(0x00280082, 0xFFFFFFFF, "Predictor Constants", US, 1, n, 1) \
    ROW(0x00280090, 0xFFFFFFFF, "Blocked Pixels", CS, 1, 1, 1) \
    ROW(0x00280091, 0xFFFFFFFF, "Block Rows", US, 1, 1, 1) \
    ROW(0x00280092, 0xFFFFFFFF, "Block Columns", US, 1, 1, 1) \
    ROW(0x00280093, 0xFFFFFFFF, "Row Overlap", US, 1, 1, 1) \
    ROW(0x00280094, 0xFFFFFFFF, "Column Overlap", US, 1, 1, 1) \
    ROW(0x00280100, 0xFFFFFFFF, "Bits Allocated", US, 1, 1, 1) \
    ROW(0x00280101, 0xFFFFFFFF, "Bits Stored", US, 1, 1, 1) \
    ROW(0x00280102, 0xFFFFFFFF, "High Bit", US, 1, 1, 1) \
    ROW(0x00280103, 0xFFFFFFFF, "Pixel Representation", US, 1, 1, 1) \
    ROW(0x00280104, 0xFFFFFFFF, "Smallest Valid Pixel Value", US, 1, 1, 1) \
    ROW(0x00280105, 0xFFFFFFFF, "Largest Valid Pixel Value", US, 1, 1, 1) \
    ROW(0x00280106, 0xFFFFFFFF, "Smallest Image Pixel Value", US, 1, 1, 1) \
    ROW(0x00280107, 0xFFFFFFFF, "Largest Image Pixel Value", US, 1, 1, 1) \
    ROW(0x00280108, 0xFFFFFFFF, "Smallest Pixel Value in Series", US, 1, 1, 1) \
    ROW(0x00280109, 0xFFFFFFFF, "Largest Pixel Value in Series", US, 1, 1, 1) \
    ROW(0x00280110, 0xFFFFFFFF, "Smallest Image Pixel Value in Plane", US, 1, 1, 1) \
    ROW(0x00280111, 0xFFFFFFFF, "Largest Image Pixel Value in Plane", US, 1, 1, 1) \
    ROW(0x00280120, 0xFFFFFFFF, "Pixel Padding Value", US, 1, 1, 1) \
    ROW(0x00280200, 0xFFFFFFFF, "Image Location", US, 1, 1, 1) \
    ROW(0x00280300, 0xFFFFFFFF, "Quality Control Image", CS, 1, 1, 1) \
    ROW(0x00280301, 0xFFFFFFFF, "Burned In Annotation", CS, 1, 1, 1) \
    ROW(0x00280400, 0xFFFFFFFF, "Transform Label", LO, 1, 1, 1) \
    ROW(0x00280400, 0xFFFFFF0F, "Rows For Nth Order Coefficients", US, 1, 1, 1) \
    ROW(0x00280401, 0xFFFFFFFF, "Transform Version Number", LO, 1, 1, 1) \
    ROW(0x00280401, 0xFFFFFF0F, "Columns For Nth Order Coefficients", US, 1, 1, 1) \
    ROW(0x00280402, 0xFFFFFFFF, "Number of Transform Steps", US, 1, 1, 1) \
    ROW(0x00280402, 0xFFFFFF0F, "CoefficientCoding", LO, 1, n, 1) \
    ROW(0x00280403, 0xFFFFFFFF, "Sequence of Compressed Data", LO, 1, n, 1) \
    ROW(0x00280403, 0xFFFFFF0F, "Coefficient Coding Pointers", AT, 1, n, 1) \
    ROW(0x00280404, 0xFFFFFFFF, "Details of Coefficients", AT, 1, n, 1) \
    ROW(0x00280700, 0xFFFFFFFF, "DCT Label", LO, 1, 1, 1) \
    ROW(0x00280701, 0xFFFFFFFF, "Data Block Description", CS, 1, n, 1) \
    ROW(0x00280702, 0xFFFFFFFF, "Data Block", AT, 1, n, 1) \
    ROW(0x00280710, 0xFFFFFFFF, "Normalization Factor Format", US, 1, 1, 1) \
    ROW(0x00280720, 0xFFFFFFFF, "Zonal Map Number Format", US, 1, 1, 1) \
    ROW(0x00280721, 0xFFFFFFFF, "Zonal Map Location", AT, 1, n, 1) \
    ROW(0x00280722, 0xFFFFFFFF, "Zonal Map Format", US, 1, 1, 1) \
    ROW(0x00280730, 0xFFFFFFFF, "Adaptive Map Format", US, 1, 1, 1) \
    ROW(0x00280740, 0xFFFFFFFF, "Code Number Format", US, 1, 1, 1) \
    ROW(0x00280800, 0xFFFFFF0F, "Code Label", CS, 1, n, 1) \
    ROW(0x00280802, 0xFFFFFF0F, "Number of Table", US, 1, 1, 1) \
    ROW(0x00280803, 0xFFFFFF0F, "Code Table Location", AT, 1, n, 1) \
    ROW(0x00280804, 0xFFFFFF0F, "Bits For Code Word", US, 1, 1, 1) \
    ROW(0x00280808, 0xFFFFFF0F, "Image Data Location", AT, 1, n, 1) \
    ROW(0x00281040, 0xFFFFFFFF, "Pixel Intensity Relationship", CS, 1, 1, 1) \
    ROW(0x00281041, 0xFFFFFFFF, "Pixel Intensity Relationship Sign", SS, 1, 1, 1) \
    ROW(0x00281050, 0xFFFFFFFF, "Window Center", DS, 1, n, 1) \
    ROW(0x00281051, 0xFFFFFFFF, "Window Width", DS, 1, n, 1) \
    ROW(0x00281052, 0xFFFFFFFF, "Rescale Intercept", DS, 1, 1, 1) \
    ROW(0x00281053, 0xFFFFFFFF, "Rescale Slope", DS, 1, 1, 1) \
    ROW(0x00281054, 0xFFFFFFFF, "Rescale Type", LO, 1, 1, 1) \
    ROW(0x00281055, 0xFFFFFFFF, "Window Center & Width Explanation", LO, 1, n, 1) \
    ROW(0x00281080, 0xFFFFFFFF, "Gray Scale", CS, 1, 1, 1) \
    ROW(0x00281090, 0xFFFFFFFF, "Recommended Viewing Mode", CS, 1, 1, 1) \
    ROW(0x00281100, 0xFFFFFFFF, "Gray Lookup Table Descriptor", US, 3, 3, 3) \
    ROW(0x00281101, 0xFFFFFFFF, "Red Palette Color Lookup Table Descriptor", US, 3, 3, 3) \
    ROW(0x00281102, 0xFFFFFFFF, "Green Palette Color Lookup Table Descriptor", US, 3, 3, 3) \
    ROW(0x00281103, 0xFFFFFFFF, "Blue Palette Color Lookup Table Descriptor", US, 3, 3, 3) \
    ROW(0x00281199, 0xFFFFFFFF, "Palette Color Lookup Table UID", UI, 1, 1, 1) \
    ROW(0x00281200, 0xFFFFFFFF, "Gray Lookup Table Data", OW, 1, 1, 1) \
    ROW(0x00281201, 0xFFFFFFFF, "Red Palette Color Lookup Table Data", OW, 1, 1, 1) \
    ROW(0x00281202, 0xFFFFFFFF, "Green Palette Color Lookup Table Data", OW, 1, 1, 1) \
    ROW(0x00281203, 0xFFFFFFFF, "Blue Palette Color Lookup Table Data", OW, 1, 1, 1) \
    ROW(0x00281221, 0xFFFFFFFF, "Segmented Red Palette Color Lookup Table Data", OW, 1, 1, 1) \
    ROW(0x00281222, 0xFFFFFFFF, "Segmented Green Palette Color Lookup Table Data", OW, 1, 1, 1) \
    ROW(0x00281223, 0xFFFFFFFF, "Segmented Blue Palette Color Lookup Table Data", OW, 1, 1, 1) \
    ROW(0x00281300, 0xFFFFFFFF, "Implant Present", CS, 1, 1, 1) \
    ROW(0x00281350, 0xFFFFFFFF, "Partial View", CS, 1, 1, 1) \
    ROW(0x00281351, 0xFFFFFFFF, "Partial View Description", ST, 1, 1, 1) \
    ROW(0x00282110, 0xFFFFFFFF, "Lossy Image Compression", CS, 1, 1, 1) \
    ROW(0x00282112, 0xFFFFFFFF, "Lossy Image Compression Ratio", DS, 1, n, 1) \
    ROW(0x00282114, 0xFFFFFFFF, "Lossy Image Compression Method", CS, 1, n, 1) \
    ROW(0x00283000, 0xFFFFFFFF, "Modality LUT Sequence", SQ, 1, 1, 1) \
    ROW(0x00283002, 0xFFFFFFFF, "LUT Descriptor", US, 3, 3, 3) \
    ROW(0x00283003, 0xFFFFFFFF, "LUT Explanation", LO, 1, 1, 1) \
    ROW(0x00283004, 0xFFFFFFFF, "Modality LUT Type", LO, 1, 1, 1) \
    ROW(0x00283006, 0xFFFFFFFF, "LUT Data", OW, 1, 1, 1) \
    ROW(0x00283010, 0xFFFFFFFF, "VOI LUT Sequence", SQ, 1, 1, 1) \
    ROW(0x00283110, 0xFFFFFFFF, "Softcopy VOI LUT Sequence", SQ, 1, 1, 1) \
    ROW(0x00284000, 0xFFFFFFFF, "Image Presentation Comments", LT, 1, 1, 1) \
    ROW(0x00285000, 0xFFFFFFFF, "Bi-Plane Acquisition Sequence", SQ, 1, 1, 1) \
    ROW(0x00286010, 0xFFFFFFFF, "Representative Frame Number", US, 1, 1, 1) \
    ROW(0x00286020, 0xFFFFFFFF, "Frame Numbers of Interest (FOI)", US, 1, n, 1) \
    ROW(0x00286022, 0xFFFFFFFF, "Frame(s) of Interest Description", LO, 1, n, 1) \
    ROW(0x00286023, 0xFFFFFFFF, "Frame of Interest Type", CS, 1, n, 1) \
    ROW(0x00286030, 0xFFFFFFFF, "Mask Pointer(s)", US, 1, n, 1) \
    ROW(0x00286040, 0xFFFFFFFF, "R Wave Pointer", US, 1, n, 1) \
    ROW(0x00286100, 0xFFFFFFFF, "Mask Subtraction Sequence", SQ, 1, 1, 1) \
    ROW(0x00286101, 0xFFFFFFFF, "Mask Operation", CS, 1, 1, 1) \
    ROW(0x00286102, 0xFFFFFFFF, "Applicable Frame Range", US, 2, n, 2) \
    ROW(0x00286110, 0xFFFFFFFF, "Mask Frame Numbers", US, 1, n, 1) \
    ROW(0x00286112, 0xFFFFFFFF, "Contrast Frame Averaging", US, 1, 1, 1) \
    ROW(0x00286114, 0xFFFFFFFF, "Mask Sub-pixel Shift", FL, 2, 2, 2) \
    ROW(0x00286120, 0xFFFFFFFF, "TID Offset", SS, 1, 1, 1) \
    ROW(0x00286190, 0xFFFFFFFF, "Mask Operation Explanation", ST, 1, 1, 1) \
    ROW(0x00289001, 0xFFFFFFFF, "Data Point Rows", UL, 1, 1, 1) \
    ROW(0x00289002, 0xFFFFFFFF, "Data Point Columns", UL, 1, 1, 1) \
    ROW(0x00289003, 0xFFFFFFFF, "Signal Domain Columns", CS, 1, 1, 1) \
    ROW(0x00289099, 0xFFFFFFFF, "Largest Monochrome Pixel Value", US, 1, 1, 1) \
    ROW(0x00289108, 0xFFFFFFFF, "Data Representation", CS, 1, 1, 1) \
    ROW(0x00289110, 0xFFFFFFFF, "Pixel Measures Sequence", SQ, 1, 1, 1) \
    ROW(0x00289132, 0xFFFFFFFF, "Frame VOI LUT Sequence", SQ, 1, 1, 1) \
    ROW(0x00289145, 0xFFFFFFFF, "Pixel Value Transformation Sequence", SQ, 1, 1, 1) \
    ROW(0x00289235, 0xFFFFFFFF, "Signal Domain Rows", CS, 1, 1, 1) \
    ROW(0x0032000A, 0xFFFFFFFF, "Study Status ID", CS, 1, 1, 1) \
    ROW(0x0032000C, 0xFFFFFFFF, "Study Priority ID", CS, 1, 1, 1) \
    ROW(0x00320012, 0xFFFFFFFF, "Study ID Issuer", LO, 1, 1, 1) \
    ROW(0x00320032, 0xFFFFFFFF, "Study Verified Date", DA, 1, 1, 1) \
    ROW(0x00320033, 0xFFFFFFFF, "Study Verified Time", TM, 1, 1, 1) \
    ROW(0x00320034, 0xFFFFFFFF, "Study Read Date", DA, 1, 1, 1) \
    ROW(0x00320035, 0xFFFFFFFF, "Study Read Time", TM, 1, 1, 1) \
    ROW(0x00321000, 0xFFFFFFFF, "Scheduled Study Start Date", DA, 1, 1, 1) \
    ROW(0x00321001, 0xFFFFFFFF, "Scheduled Study Start Time", TM, 1, 1, 1) \
    ROW(0x00321010, 0xFFFFFFFF, "Scheduled Study Stop Date", DA, 1, 1, 1) \
    ROW(0x00321011, 0xFFFFFFFF, "Scheduled Study Stop Time", TM, 1, 1, 1) \
    ROW(0x00321020, 0xFFFFFFFF, "Scheduled Study Location", LO, 1, 1, 1) \
    ROW(0x00321021, 0xFFFFFFFF, "Scheduled Study Location AE Title", AE, 1, n, 1) \
    ROW(0x00321030, 0xFFFFFFFF, "Reason for Study", LO, 1, 1, 1) \
    ROW(0x00321031, 0xFFFFFFFF, "Requesting Physician Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00321032, 0xFFFFFFFF, "Requesting Physician", PN, 1, 1, 1) \
    ROW(0x00321033, 0xFFFFFFFF, "Requesting Service", LO, 1, 1, 1) \
    ROW(0x00321040, 0xFFFFFFFF, "Study Arrival Date", DA, 1, 1, 1) \
    ROW(0x00321041, 0xFFFFFFFF, "Study Arrival Time", TM, 1, 1, 1) \
    ROW(0x00321050, 0xFFFFFFFF, "Study Completion Date", DA, 1, 1, 1) \
    ROW(0x00321051, 0xFFFFFFFF, "Study Completion Time", TM, 1, 1, 1) \
    ROW(0x00321055, 0xFFFFFFFF, "Study Component Status ID", CS, 1, 1, 1) \
    ROW(0x00321060, 0xFFFFFFFF, "Requested Procedure Description", LO, 1, 1, 1) \
    ROW(0x00321064, 0xFFFFFFFF, "Requested Procedure Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00321070, 0xFFFFFFFF, "Requested Contrast Agent", LO, 1, 1, 1) \
    ROW(0x00324000, 0xFFFFFFFF, "Study Comments", LT, 1, 1, 1) \
    ROW(0x00380004, 0xFFFFFFFF, "Referenced Patient Alias Sequence", SQ, 1, 1, 1) \
    ROW(0x00380008, 0xFFFFFFFF, "Visit Status ID", CS, 1, 1, 1) \
    ROW(0x00380010, 0xFFFFFFFF, "Admission ID", LO, 1, 1, 1) \
    ROW(0x00380011, 0xFFFFFFFF, "Issuer of Admission ID", LO, 1, 1, 1) \
    ROW(0x00380016, 0xFFFFFFFF, "Route of Admissions", LO, 1, 1, 1) \
    ROW(0x0038001A, 0xFFFFFFFF, "Scheduled Admission Date", DA, 1, 1, 1) \
    ROW(0x0038001B, 0xFFFFFFFF, "Scheduled Admission Time", TM, 1, 1, 1) \
    ROW(0x0038001C, 0xFFFFFFFF, "Scheduled Discharge Date", DA, 1, 1, 1) \
    ROW(0x0038001D, 0xFFFFFFFF, "Scheduled Discharge Time", TM, 1, 1, 1) \
    ROW(0x0038001E, 0xFFFFFFFF, "Scheduled Patient Institution Residence", LO, 1, 1, 1) \
    ROW(0x00380020, 0xFFFFFFFF, "Admitting Date", DA, 1, 1, 1) \
    ROW(0x00380021, 0xFFFFFFFF, "Admitting Time", TM, 1, 1, 1) \
    ROW(0x00380030, 0xFFFFFFFF, "Discharge Date", DA, 1, 1, 1) \
    ROW(0x00380032, 0xFFFFFFFF, "Discharge Time", TM, 1, 1, 1) \
    ROW(0x00380040, 0xFFFFFFFF, "Discharge Diagnosis Description", LO, 1, 1, 1) \
    ROW(0x00380044, 0xFFFFFFFF, "Discharge Diagnosis Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00380050, 0xFFFFFFFF, "Special Needs", LO, 1, 1, 1) \
    ROW(0x00380300, 0xFFFFFFFF, "Current Patient Location", LO, 1, 1, 1) \
    ROW(0x00380400, 0xFFFFFFFF, "Patient's Institution Residence", LO, 1, 1, 1) \
    ROW(0x00380500, 0xFFFFFFFF, "Patient State", LO, 1, 1, 1) \
    ROW(0x00384000, 0xFFFFFFFF, "Visit Comments", LT, 1, 1, 1) \
    ROW(0x003A0004, 0xFFFFFFFF, "Waveform Originality", CS, 1, 1, 1) \
    ROW(0x003A0005, 0xFFFFFFFF, "Number of Waveform Channels", US, 1, 1, 1) \
    ROW(0x003A0010, 0xFFFFFFFF, "Number of Waveform Samples", UL, 1, 1, 1) \
    ROW(0x003A001A, 0xFFFFFFFF, "Sampling Frequency", DS, 1, 1, 1) \
    ROW(0x003A0020, 0xFFFFFFFF, "Multiplex Group Label", SH, 1, 1, 1) \
    ROW(0x003A0200, 0xFFFFFFFF, "Channel Definition Sequence", SQ, 1, 1, 1) \
    ROW(0x003A0202, 0xFFFFFFFF, "Waveform Channel Number", IS, 1, 1, 1) \
    ROW(0x003A0203, 0xFFFFFFFF, "Channel Label", SH, 1, 1, 1) \
    ROW(0x003A0205, 0xFFFFFFFF, "Channel Status", CS, 1, n, 1) \
    ROW(0x003A0208, 0xFFFFFFFF, "Channel Source Sequence", SQ, 1, 1, 1) \
    ROW(0x003A0209, 0xFFFFFFFF, "Channel Source Modifiers Sequence", SQ, 1, 1, 1) \
    ROW(0x003A020A, 0xFFFFFFFF, "Source Waveform Sequence", SQ, 1, 1, 1) \
    ROW(0x003A020C, 0xFFFFFFFF, "Channel Derivation Description", LO, 1, 1, 1) \
    ROW(0x003A0210, 0xFFFFFFFF, "Channel Sensitivity", DS, 1, 1, 1) \
    ROW(0x003A0211, 0xFFFFFFFF, "Channel Sensitivity Units Sequence", SQ, 1, 1, 1) \
    ROW(0x003A0212, 0xFFFFFFFF, "Channel Sensitivity Correction Factor", DS, 1, 1, 1) \
    ROW(0x003A0213, 0xFFFFFFFF, "Channel Baseline", DS, 1, 1, 1) \
    ROW(0x003A0214, 0xFFFFFFFF, "Channel Time Skew", DS, 1, 1, 1) \
    ROW(0x003A0215, 0xFFFFFFFF, "Channel Sample Skew", DS, 1, 1, 1) \
    ROW(0x003A0218, 0xFFFFFFFF, "Channel Offset", DS, 1, 1, 1) \
    ROW(0x003A021A, 0xFFFFFFFF, "Waveform Bits Stored", US, 1, 1, 1) \
    ROW(0x003A0220, 0xFFFFFFFF, "Filter Low Frequency", DS, 1, 1, 1) \
    ROW(0x003A0221, 0xFFFFFFFF, "Filter High Frequency", DS, 1, 1, 1) \
    ROW(0x003A0222, 0xFFFFFFFF, "Notch Filter Frequency", DS, 1, 1, 1) \
    ROW(0x003A0223, 0xFFFFFFFF, "Notch Filter Bandwidth", DS, 1, 1, 1) \
    ROW(0x003A0300, 0xFFFFFFFF, "Multiplexed Audio Channels Description Code Sequence", SQ, 1, 1, 1) \
    ROW(0x003A0301, 0xFFFFFFFF, "Channel Identification Code", IS, 1, 1, 1) \
    ROW(0x003A0302, 0xFFFFFFFF, "Channel Mode", CS, 1, 1, 1) \
    ROW(0x00400001, 0xFFFFFFFF, "Scheduled Station AE Title", AE, 1, n, 1) \
    ROW(0x00400002, 0xFFFFFFFF, "Scheduled Procedure Step Start Date", DA, 1, 1, 1) \
    ROW(0x00400003, 0xFFFFFFFF, "Scheduled Procedure Step Start Time", TM, 1, 1, 1) \
    ROW(0x00400004, 0xFFFFFFFF, "Scheduled Procedure Step End Date", DA, 1, 1, 1) \
    ROW(0x00400005, 0xFFFFFFFF, "Scheduled Procedure Step End Time", TM, 1, 1, 1) \
    ROW(0x00400006, 0xFFFFFFFF, "Scheduled Performing Physician's Name", PN, 1, 1, 1) \
    ROW(0x00400007, 0xFFFFFFFF, "Scheduled Procedure Step Description", LO, 1, 1, 1) \
    ROW(0x00400008, 0xFFFFFFFF, "Scheduled Protocol Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00400009, 0xFFFFFFFF, "Scheduled Procedure Step ID", SH, 1, 1, 1) \
    ROW(0x0040000A, 0xFFFFFFFF, "Stage Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0040000B, 0xFFFFFFFF, "Scheduled Performing Physician Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00400010, 0xFFFFFFFF, "Scheduled Station Name", SH, 1, n, 1) \
    ROW(0x00400011, 0xFFFFFFFF, "Scheduled Procedure Step Location", SH, 1, 1, 1) \
    ROW(0x00400012, 0xFFFFFFFF, "Pre-Medication", LO, 1, 1, 1) \
    ROW(0x00400020, 0xFFFFFFFF, "Scheduled Procedure Step Status", CS, 1, 1, 1) \
    ROW(0x00400100, 0xFFFFFFFF, "Scheduled Procedure Step Sequence", SQ, 1, 1, 1) \
    ROW(0x00400220, 0xFFFFFFFF, "Referenced Non-Image Composite SOP Instance Sequence", SQ, 1, 1, 1) \
    ROW(0x00400241, 0xFFFFFFFF, "Performed Station AE Title", AE, 1, 1, 1) \
    ROW(0x00400242, 0xFFFFFFFF, "Performed Station Name", SH, 1, 1, 1) \
    ROW(0x00400243, 0xFFFFFFFF, "Performed Location", SH, 1, 1, 1) \
    ROW(0x00400244, 0xFFFFFFFF, "Performed Procedure Step Start Date", DA, 1, 1, 1) \
    ROW(0x00400245, 0xFFFFFFFF, "Performed Procedure Step Start Time", TM, 1, 1, 1) \
    ROW(0x00400250, 0xFFFFFFFF, "Performed Procedure Step End Date", DA, 1, 1, 1) \
    ROW(0x00400251, 0xFFFFFFFF, "Performed Procedure Step End Time", TM, 1, 1, 1) \
    ROW(0x00400252, 0xFFFFFFFF, "Performed Procedure Step Status", CS, 1, 1, 1) \
    ROW(0x00400253, 0xFFFFFFFF, "Performed Procedure Step ID", SH, 1, 1, 1) \
    ROW(0x00400254, 0xFFFFFFFF, "Performed Procedure Step Description", LO, 1, 1, 1) \
    ROW(0x00400255, 0xFFFFFFFF, "Performed Procedure Type Description", LO, 1, 1, 1) \
    ROW(0x00400260, 0xFFFFFFFF, "Performed Protocol Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00400270, 0xFFFFFFFF, "Scheduled Step Attributes Sequence", SQ, 1, 1, 1) \
    ROW(0x00400275, 0xFFFFFFFF, "Request Attributes Sequence", SQ, 1, 1, 1) \
    ROW(0x00400280, 0xFFFFFFFF, "Comments on the Performed Procedure Step", ST, 1, 1, 1) \
    ROW(0x00400281, 0xFFFFFFFF, "Performed Procedure Step Discontinuation Reason Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00400293, 0xFFFFFFFF, "Quantity Sequence", SQ, 1, 1, 1) \
    ROW(0x00400294, 0xFFFFFFFF, "Quantity", DS, 1, 1, 1) \
    ROW(0x00400295, 0xFFFFFFFF, "Measuring Units Sequence", SQ, 1, 1, 1) \
    ROW(0x00400296, 0xFFFFFFFF, "Billing Item Sequence", SQ, 1, 1, 1) \
    ROW(0x00400300, 0xFFFFFFFF, "Total Time of Fluoroscopy", US, 1, 1, 1) \
    ROW(0x00400301, 0xFFFFFFFF, "Total Number of Exposures", US, 1, 1, 1) \
    ROW(0x00400302, 0xFFFFFFFF, "Entrance Dose", US, 1, 1, 1) \
    ROW(0x00400303, 0xFFFFFFFF, "Exposed Area", US, 1, 2, 1) \
    ROW(0x00400306, 0xFFFFFFFF, "Distance Source to Entrance", DS, 1, 1, 1) \
    ROW(0x00400307, 0xFFFFFFFF, "Distance Source to Support", DS, 1, 1, 1) \
    ROW(0x0040030E, 0xFFFFFFFF, "Exposure Dose Sequence", SQ, 1, 1, 1) \
    ROW(0x00400310, 0xFFFFFFFF, "Comments on Radiation Dose", ST, 1, 1, 1) \
    ROW(0x00400312, 0xFFFFFFFF, "X-Ray Output", DS, 1, 1, 1) \
    ROW(0x00400314, 0xFFFFFFFF, "Half Value Layer", DS, 1, 1, 1) \
    ROW(0x00400316, 0xFFFFFFFF, "Organ Dose", DS, 1, 1, 1) \
    ROW(0x00400318, 0xFFFFFFFF, "Organ Exposed", CS, 1, 1, 1) \
    ROW(0x00400320, 0xFFFFFFFF, "Billing Procedure Step Sequence", SQ, 1, 1, 1) \
    ROW(0x00400321, 0xFFFFFFFF, "Film Consumption Sequence", SQ, 1, 1, 1) \
    ROW(0x00400324, 0xFFFFFFFF, "Billing Supplies and Devices Sequence", SQ, 1, 1, 1) \
    ROW(0x00400330, 0xFFFFFFFF, "Referenced Procedure Step Sequence", SQ, 1, 1, 1) \
    ROW(0x00400340, 0xFFFFFFFF, "Performed Series Sequence", SQ, 1, 1, 1) \
    ROW(0x00400400, 0xFFFFFFFF, "Comments on the Scheduled Procedure Step", LT, 1, 1, 1) \
    ROW(0x00400440, 0xFFFFFFFF, "Protocol Context Sequence", SQ, 1, 1, 1) \
    ROW(0x00400441, 0xFFFFFFFF, "Content Item Modifier Sequence", SQ, 1, 1, 1) \
    ROW(0x0040050A, 0xFFFFFFFF, "Specimen Accession Number", LO, 1, 1, 1) \
    ROW(0x00400550, 0xFFFFFFFF, "Specimen Sequence", SQ, 1, 1, 1) \
    ROW(0x00400551, 0xFFFFFFFF, "Specimen Identifier", LO, 1, 1, 1) \
    ROW(0x00400555, 0xFFFFFFFF, "Acquisition Context Sequence", SQ, 1, 1, 1) \
    ROW(0x00400556, 0xFFFFFFFF, "Acquisition Context Description", ST, 1, 1, 1) \
    ROW(0x0040059A, 0xFFFFFFFF, "Specimen Type Code Sequence", SQ, 1, 1, 1) \
    ROW(0x004006FA, 0xFFFFFFFF, "Slide Identifier", LO, 1, 1, 1) \
    ROW(0x0040071A, 0xFFFFFFFF, "Image Center Point Coordinates Sequence", SQ, 1, 1, 1) \
    ROW(0x0040072A, 0xFFFFFFFF, "X offset in Slide Coordinate System", DS, 1, 1, 1) \
    ROW(0x0040073A, 0xFFFFFFFF, "Y offset in Slide Coordinate System", DS, 1, 1, 1) \
    ROW(0x0040074A, 0xFFFFFFFF, "Z offset in Slide Coordinate System", DS, 1, 1, 1) \
    ROW(0x004008D8, 0xFFFFFFFF, "Pixel Spacing Sequence", SQ, 1, 1, 1) \
    ROW(0x004008DA, 0xFFFFFFFF, "Coordinate System Axis Code Sequence", SQ, 1, 1, 1) \
    ROW(0x004008EA, 0xFFFFFFFF, "Measurement Units Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00401001, 0xFFFFFFFF, "Requested Procedure ID", SH, 1, 1, 1) \
    ROW(0x00401002, 0xFFFFFFFF, "Reason for the Requested Procedure", LO, 1, 1, 1) \
    ROW(0x00401003, 0xFFFFFFFF, "Requested Procedure Priority", SH, 1, 1, 1) \
    ROW(0x00401004, 0xFFFFFFFF, "Patient Transport Arrangements", LO, 1, 1, 1) \
    ROW(0x00401005, 0xFFFFFFFF, "Requested Procedure Location", LO, 1, 1, 1) \
    ROW(0x00401006, 0xFFFFFFFF, "Placer Order Number / Procedure", SH, 1, 1, 1) \
    ROW(0x00401007, 0xFFFFFFFF, "Filler Order Number / Procedure", SH, 1, 1, 1) \
    ROW(0x00401008, 0xFFFFFFFF, "Confidentiality Code", LO, 1, 1, 1) \
    ROW(0x00401009, 0xFFFFFFFF, "Reporting Priority", SH, 1, 1, 1) \
    ROW(0x0040100A, 0xFFFFFFFF, "Reason for Requested Procedure Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00401010, 0xFFFFFFFF, "Names of Intended Recipients of Results", PN, 1, n, 1) \
    ROW(0x00401011, 0xFFFFFFFF, "Intended Recipients of Results Identification Sequence", SQ, 1, 1, 1) \
    ROW(0x00401101, 0xFFFFFFFF, "Person Identification Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00401102, 0xFFFFFFFF, "Person's Address", ST, 1, 1, 1) \
    ROW(0x00401103, 0xFFFFFFFF, "Person's Telephone Numbers", LO, 1, n, 1) \
    ROW(0x00401400, 0xFFFFFFFF, "Requested Procedure Comments", LT, 1, 1, 1) \
    ROW(0x00402001, 0xFFFFFFFF, "Reason for the Imaging Service Request", LO, 1, 1, 1) \
    ROW(0x00402004, 0xFFFFFFFF, "Issue Date of Imaging Service Request", DA, 1, 1, 1) \
    ROW(0x00402005, 0xFFFFFFFF, "Issue Time of Imaging Service Request", TM, 1, 1, 1) \
    ROW(0x00402006, 0xFFFFFFFF, "Placer Order Number / Imaging Service Request (Retired)", SH, 1, 1, 1) \
    ROW(0x00402007, 0xFFFFFFFF, "Filler Order Number / Imaging Service Request (Retired)", SH, 1, 1, 1) \
    ROW(0x00402008, 0xFFFFFFFF, "Order Entered By", PN, 1, 1, 1) \
    ROW(0x00402009, 0xFFFFFFFF, "Order Enterer's Location", SH, 1, 1, 1) \
    ROW(0x00402010, 0xFFFFFFFF, "Order Callback Phone Number", SH, 1, 1, 1) \
    ROW(0x00402016, 0xFFFFFFFF, "Placer Order Number / Imaging Service Request", LO, 1, 1, 1) \
    ROW(0x00402017, 0xFFFFFFFF, "Filler Order Number / Imaging Service Request", LO, 1, 1, 1) \
    ROW(0x00402400, 0xFFFFFFFF, "Imaging Service Request Comments", LT, 1, 1, 1) \
    ROW(0x00403001, 0xFFFFFFFF, "Confidentiality Constraint on Patient Data Description", LO, 1, 1, 1) \
    ROW(0x00404001, 0xFFFFFFFF, "General Purpose Scheduled Procedure Step Status", CS, 1, 1, 1) \
    ROW(0x00404002, 0xFFFFFFFF, "General Purpose Performed Procedure Step Status", CS, 1, 1, 1) \
    ROW(0x00404003, 0xFFFFFFFF, "General Purpose Scheduled Procedure Step Priority", CS, 1, 1, 1) \
    ROW(0x00404004, 0xFFFFFFFF, "Scheduled Processing Applications Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404005, 0xFFFFFFFF, "Scheduled Procedure Step Start Date and Time", DT, 1, 1, 1) \
    ROW(0x00404006, 0xFFFFFFFF, "Multiple Copies Flag", CS, 1, 1, 1) \
    ROW(0x00404007, 0xFFFFFFFF, "Performed Processing Applications Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404009, 0xFFFFFFFF, "Human Performer Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404010, 0xFFFFFFFF, "Scheduled Procedure Step Modification Date and Time", DT, 1, 1, 1) \
    ROW(0x00404011, 0xFFFFFFFF, "Expected Completion Date and Time", DT, 1, 1, 1) \
    ROW(0x00404015, 0xFFFFFFFF, "Resulting General Purpose Performed Procedure Steps Sequence", SQ, 1, 1, 1) \
    ROW(0x00404016, 0xFFFFFFFF, "Referenced General Purpose Scheduled Procedure Step Sequence", SQ, 1, 1, 1) \
    ROW(0x00404018, 0xFFFFFFFF, "Scheduled Workitem Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404019, 0xFFFFFFFF, "Performed Workitem Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404020, 0xFFFFFFFF, "Input Availability Flag", CS, 1, 1, 1) \
    ROW(0x00404021, 0xFFFFFFFF, "Input Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00404022, 0xFFFFFFFF, "Relevant Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00404023, 0xFFFFFFFF, "Referenced General Purpose Scheduled Procedure Step Transaction UID", UI, 1, 1, 1) \
    ROW(0x00404025, 0xFFFFFFFF, "Scheduled Station Name Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404026, 0xFFFFFFFF, "Scheduled Station Class Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404027, 0xFFFFFFFF, "Scheduled Station Geographic Location Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404028, 0xFFFFFFFF, "Performed Station Name Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404029, 0xFFFFFFFF, "Performed Station Class Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404030, 0xFFFFFFFF, "Performed Station Geographic Location Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404031, 0xFFFFFFFF, "Requested Subsequent Workitem Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404032, 0xFFFFFFFF, "Non-DICOM Output Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00404033, 0xFFFFFFFF, "Output Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00404034, 0xFFFFFFFF, "Scheduled Human Performers Sequence", SQ, 1, 1, 1) \
    ROW(0x00404035, 0xFFFFFFFF, "Actual Human Performers Sequence", SQ, 1, 1, 1) \
    ROW(0x00404036, 0xFFFFFFFF, "Human Performer's Organization", LO, 1, 1, 1) \
    ROW(0x00404037, 0xFFFFFFFF, "Human Performer's Name", PN, 1, 1, 1) \
    ROW(0x00408302, 0xFFFFFFFF, "Entrance Dose in mGy", DS, 1, 1, 1) \
    ROW(0x00409096, 0xFFFFFFFF, "Real World Value Mapping Sequence", SQ, 1, 1, 1) \
    ROW(0x00409210, 0xFFFFFFFF, "LUT Label", SH, 1, 1, 1) \
    ROW(0x00409211, 0xFFFFFFFF, "Real World Value Last Value Mapped", US, 1, 1, 1) \
    ROW(0x00409212, 0xFFFFFFFF, "Real World Value LUT Data", FD, 1, n, 1) \
    ROW(0x00409216, 0xFFFFFFFF, "Real World Value First Value Mapped", US, 1, 1, 1) \
    ROW(0x00409224, 0xFFFFFFFF, "Real World Value Intercept", FD, 1, 1, 1) \
    ROW(0x00409225, 0xFFFFFFFF, "Real World Value Slope", FD, 1, 1, 1) \
    ROW(0x0040A010, 0xFFFFFFFF, "Relationship Type", CS, 1, 1, 1) \
    ROW(0x0040A027, 0xFFFFFFFF, "Verifying Organization", LO, 1, 1, 1) \
    ROW(0x0040A030, 0xFFFFFFFF, "Verification Date Time", DT, 1, 1, 1) \
    ROW(0x0040A032, 0xFFFFFFFF, "Observation Date Time", DT, 1, 1, 1) \
    ROW(0x0040A040, 0xFFFFFFFF, "Value Type", CS, 1, 1, 1) \
    ROW(0x0040A043, 0xFFFFFFFF, "Concept Name Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A050, 0xFFFFFFFF, "Continuity Of Content", CS, 1, 1, 1) \
    ROW(0x0040A073, 0xFFFFFFFF, "Verifying Observer Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A075, 0xFFFFFFFF, "Verifying Observer Name", PN, 1, 1, 1) \
    ROW(0x0040A088, 0xFFFFFFFF, "Verifying Observer Identification Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A0B0, 0xFFFFFFFF, "Referenced Waveform Channels", US, 2, n, 2) \
    ROW(0x0040A120, 0xFFFFFFFF, "DateTime", DT, 1, 1, 1) \
    ROW(0x0040A121, 0xFFFFFFFF, "Date", DA, 1, 1, 1) \
    ROW(0x0040A122, 0xFFFFFFFF, "Time", TM, 1, 1, 1) \
    ROW(0x0040A123, 0xFFFFFFFF, "Person Name", PN, 1, 1, 1) \
    ROW(0x0040A124, 0xFFFFFFFF, "UID", UI, 1, 1, 1) \
    ROW(0x0040A130, 0xFFFFFFFF, "Temporal Range Type", CS, 1, 1, 1) \
    ROW(0x0040A132, 0xFFFFFFFF, "Referenced Sample Positions", UL, 1, n, 1) \
    ROW(0x0040A136, 0xFFFFFFFF, "Referenced Frame Numbers", US, 1, n, 1) \
    ROW(0x0040A138, 0xFFFFFFFF, "Referenced Time Offsets", DS, 1, n, 1) \
    ROW(0x0040A13A, 0xFFFFFFFF, "Referenced DateTime", DT, 1, n, 1) \
    ROW(0x0040A160, 0xFFFFFFFF, "Text Value", UT, 1, 1, 1) \
    ROW(0x0040A168, 0xFFFFFFFF, "Concept Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A170, 0xFFFFFFFF, "Purpose of Reference Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A180, 0xFFFFFFFF, "Annotation Group Number", US, 1, 1, 1) \
    ROW(0x0040A195, 0xFFFFFFFF, "Modifier Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A300, 0xFFFFFFFF, "Measured Value Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A301, 0xFFFFFFFF, "Numeric Value Qualifier Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A30A, 0xFFFFFFFF, "Numeric Value", DS, 1, n, 1) \
    ROW(0x0040A360, 0xFFFFFFFF, "Predecessor Documents Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A370, 0xFFFFFFFF, "Referenced Request Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A372, 0xFFFFFFFF, "Performed Procedure Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A375, 0xFFFFFFFF, "Current Requested Procedure Evidence Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A385, 0xFFFFFFFF, "Pertinent Other Evidence Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A491, 0xFFFFFFFF, "Completion Flag", CS, 1, 1, 1) \
    ROW(0x0040A492, 0xFFFFFFFF, "Completion Flag Description", LO, 1, 1, 1) \
    ROW(0x0040A493, 0xFFFFFFFF, "Verification Flag", CS, 1, 1, 1) \
    ROW(0x0040A504, 0xFFFFFFFF, "Content Template Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A525, 0xFFFFFFFF, "Identical Documents Sequence", SQ, 1, 1, 1) \
    ROW(0x0040A730, 0xFFFFFFFF, "Content Sequence", SQ, 1, 1, 1) \
    ROW(0x0040B020, 0xFFFFFFFF, "Waveform Annotation Sequence", SQ, 1, 1, 1) \
    ROW(0x0040DB00, 0xFFFFFFFF, "Template Identifier", CS, 1, 1, 1) \
    ROW(0x0040DB06, 0xFFFFFFFF, "Template Version", DT, 1, 1, 1) \
    ROW(0x0040DB07, 0xFFFFFFFF, "Template Local Version", DT, 1, 1, 1) \
    ROW(0x0040DB0B, 0xFFFFFFFF, "Template Extension Flag", CS, 1, 1, 1) \
    ROW(0x0040DB0C, 0xFFFFFFFF, "Template Extension Organization UID", UI, 1, 1, 1) \
    ROW(0x0040DB0D, 0xFFFFFFFF, "Template Extension Creator UID", UI, 1, 1, 1) \
    ROW(0x0040DB73, 0xFFFFFFFF, "Referenced Content Item Identifier", UL, 1, n, 1) \
    ROW(0x00500004, 0xFFFFFFFF, "Calibration Image", CS, 1, 1, 1) \
    ROW(0x00500010, 0xFFFFFFFF, "Device Sequence", SQ, 1, 1, 1) \
    ROW(0x00500014, 0xFFFFFFFF, "Device Length", DS, 1, 1, 1) \
    ROW(0x00500016, 0xFFFFFFFF, "Device Diameter", DS, 1, 1, 1) \
    ROW(0x00500017, 0xFFFFFFFF, "Device Diameter Units", CS, 1, 1, 1) \
    ROW(0x00500018, 0xFFFFFFFF, "Device Volume", DS, 1, 1, 1) \
    ROW(0x00500019, 0xFFFFFFFF, "Intermarker Distance", DS, 1, 1, 1) \
    ROW(0x00500020, 0xFFFFFFFF, "Device Description", LO, 1, 1, 1) \
    ROW(0x00540010, 0xFFFFFFFF, "Energy Window Vector", US, 1, n, 1) \
    ROW(0x00540011, 0xFFFFFFFF, "Number of Energy Windows", US, 1, 1, 1) \
    ROW(0x00540012, 0xFFFFFFFF, "Energy Window Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00540013, 0xFFFFFFFF, "Energy Window Range Sequence", SQ, 1, 1, 1) \
    ROW(0x00540014, 0xFFFFFFFF, "Energy Window Lower Limit", DS, 1, 1, 1) \
    ROW(0x00540015, 0xFFFFFFFF, "Energy Window Upper Limit", DS, 1, 1, 1) \
    ROW(0x00540016, 0xFFFFFFFF, "Radiopharmaceutical Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00540017, 0xFFFFFFFF, "Residual Syringe Counts", IS, 1, 1, 1) \
    ROW(0x00540018, 0xFFFFFFFF, "Energy Window Name", SH, 1, 1, 1) \
    ROW(0x00540020, 0xFFFFFFFF, "Detector Vector", US, 1, n, 1) \
    ROW(0x00540021, 0xFFFFFFFF, "Number of Detectors", US, 1, 1, 1) \
    ROW(0x00540022, 0xFFFFFFFF, "Detector Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00540030, 0xFFFFFFFF, "Phase Vector", US, 1, n, 1) \
    ROW(0x00540031, 0xFFFFFFFF, "Number of Phases", US, 1, 1, 1) \
    ROW(0x00540032, 0xFFFFFFFF, "Phase Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00540033, 0xFFFFFFFF, "Number of Frames in Phase", US, 1, 1, 1) \
    ROW(0x00540036, 0xFFFFFFFF, "Phase Delay", IS, 1, 1, 1) \
    ROW(0x00540038, 0xFFFFFFFF, "Pause Between Frames", IS, 1, 1, 1) \
    ROW(0x00540039, 0xFFFFFFFF, "Phase Description", CS, 1, 1, 1) \
    ROW(0x00540050, 0xFFFFFFFF, "Rotation Vector", US, 1, n, 1) \
    ROW(0x00540051, 0xFFFFFFFF, "Number of Rotations", US, 1, 1, 1) \
    ROW(0x00540052, 0xFFFFFFFF, "Rotation Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00540053, 0xFFFFFFFF, "Number of Frames in Rotation", US, 1, 1, 1) \
    ROW(0x00540060, 0xFFFFFFFF, "R-R Interval Vector", US, 1, n, 1) \
    ROW(0x00540061, 0xFFFFFFFF, "Number of R-R Intervals", US, 1, 1, 1) \
    ROW(0x00540062, 0xFFFFFFFF, "Gated Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00540063, 0xFFFFFFFF, "Data Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00540070, 0xFFFFFFFF, "Time Slot Vector", US, 1, n, 1) \
    ROW(0x00540071, 0xFFFFFFFF, "Number of Time Slots", US, 1, 1, 1) \
    ROW(0x00540072, 0xFFFFFFFF, "Time Slot Information Sequence", SQ, 1, 1, 1) \
    ROW(0x00540073, 0xFFFFFFFF, "Time Slot Time", DS, 1, 1, 1) \
    ROW(0x00540080, 0xFFFFFFFF, "Slice Vector", US, 1, n, 1) \
    ROW(0x00540081, 0xFFFFFFFF, "Number of Slices", US, 1, 1, 1) \
    ROW(0x00540090, 0xFFFFFFFF, "Angular View Vector", US, 1, n, 1) \
    ROW(0x00540100, 0xFFFFFFFF, "Time Slice Vector", US, 1, n, 1) \
    ROW(0x00540101, 0xFFFFFFFF, "Number of Time Slices", US, 1, 1, 1) \
    ROW(0x00540200, 0xFFFFFFFF, "Start Angle", DS, 1, 1, 1) \
    ROW(0x00540202, 0xFFFFFFFF, "Type of Detector Motion", CS, 1, 1, 1) \
    ROW(0x00540210, 0xFFFFFFFF, "Trigger Vector", IS, 1, n, 1) \
    ROW(0x00540211, 0xFFFFFFFF, "Number of Triggers in Phase", US, 1, 1, 1) \
    ROW(0x00540220, 0xFFFFFFFF, "View Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00540222, 0xFFFFFFFF, "View Modifier Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00540300, 0xFFFFFFFF, "Radionuclide Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00540302, 0xFFFFFFFF, "Administration Route Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00540304, 0xFFFFFFFF, "Radiopharmaceutical Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00540306, 0xFFFFFFFF, "Calibration Data Sequence", SQ, 1, 1, 1) \
    ROW(0x00540308, 0xFFFFFFFF, "Energy Window Number", US, 1, 1, 1) \
    ROW(0x00540400, 0xFFFFFFFF, "Image ID", SH, 1, 1, 1) \
    ROW(0x00540410, 0xFFFFFFFF, "Patient Orientation Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00540412, 0xFFFFFFFF, "Patient Orientation Modifier Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00540414, 0xFFFFFFFF, "Patient Gantry Relationship Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00540500, 0xFFFFFFFF, "Slice Progression Direction", CS, 1, 1, 1) \
    ROW(0x00541000, 0xFFFFFFFF, "Series Type", CS, 2, 2, 2) \
    ROW(0x00541001, 0xFFFFFFFF, "Units", CS, 1, 1, 1) \
    ROW(0x00541002, 0xFFFFFFFF, "Counts Source", CS, 1, 1, 1) \
    ROW(0x00541004, 0xFFFFFFFF, "Reprojection Method", CS, 1, 1, 1) \
    ROW(0x00541100, 0xFFFFFFFF, "Randoms Correction Method", CS, 1, 1, 1) \
    ROW(0x00541101, 0xFFFFFFFF, "Attenuation Correction Method", LO, 1, 1, 1) \
    ROW(0x00541102, 0xFFFFFFFF, "Decay Correction", CS, 1, 1, 1) \
    ROW(0x00541103, 0xFFFFFFFF, "Reconstruction Method", LO, 1, 1, 1) \
    ROW(0x00541104, 0xFFFFFFFF, "Detector Lines of Response Used", LO, 1, 1, 1) \
    ROW(0x00541105, 0xFFFFFFFF, "Scatter Correction Method", LO, 1, 1, 1) \
    ROW(0x00541200, 0xFFFFFFFF, "Axial Acceptance", DS, 1, 1, 1) \
    ROW(0x00541201, 0xFFFFFFFF, "Axial Mash", IS, 2, 2, 2) \
    ROW(0x00541202, 0xFFFFFFFF, "Transverse Mash", IS, 1, 1, 1) \
    ROW(0x00541203, 0xFFFFFFFF, "Detector Element Size", DS, 2, 2, 2) \
    ROW(0x00541210, 0xFFFFFFFF, "Coincidence Window Width", DS, 1, 1, 1) \
    ROW(0x00541220, 0xFFFFFFFF, "Secondary Counts Type", CS, 1, n, 1) \
    ROW(0x00541300, 0xFFFFFFFF, "Frame Reference Time", DS, 1, 1, 1) \
    ROW(0x00541310, 0xFFFFFFFF, "Primary (Prompts) Counts Accumulated", IS, 1, 1, 1) \
    ROW(0x00541311, 0xFFFFFFFF, "Secondary Counts Accumulated", IS, 1, n, 1) \
    ROW(0x00541320, 0xFFFFFFFF, "Slice Sensitivity Factor", DS, 1, 1, 1) \
    ROW(0x00541321, 0xFFFFFFFF, "Decay Factor", DS, 1, 1, 1) \
    ROW(0x00541322, 0xFFFFFFFF, "Dose Calibration Factor", DS, 1, 1, 1) \
    ROW(0x00541323, 0xFFFFFFFF, "Scatter Fraction Factor", DS, 1, 1, 1) \
    ROW(0x00541324, 0xFFFFFFFF, "Dead Time Factor", DS, 1, 1, 1) \
    ROW(0x00541330, 0xFFFFFFFF, "Image Index", US, 1, 1, 1) \
    ROW(0x00541400, 0xFFFFFFFF, "Counts Included", CS, 1, n, 1) \
    ROW(0x00541401, 0xFFFFFFFF, "Dead Time Correction Flag", CS, 1, 1, 1) \
    ROW(0x00603000, 0xFFFFFFFF, "Histogram Sequence", SQ, 1, 1, 1) \
    ROW(0x00603002, 0xFFFFFFFF, "Histogram Number of Bins", US, 1, 1, 1) \
    ROW(0x00603004, 0xFFFFFFFF, "Histogram First Bin Value", US, 1, 1, 1) \
    ROW(0x00603006, 0xFFFFFFFF, "Histogram Last Bin Value", US, 1, 1, 1) \
    ROW(0x00603008, 0xFFFFFFFF, "Histogram Bin Width", US, 1, 1, 1) \
    ROW(0x00603010, 0xFFFFFFFF, "Histogram Explanation", LO, 1, 1, 1) \
    ROW(0x00603020, 0xFFFFFFFF, "Histogram Data", UL, 1, n, 1) \
    ROW(0x00700001, 0xFFFFFFFF, "Graphic Annotation Sequence", SQ, 1, 1, 1) \
    ROW(0x00700002, 0xFFFFFFFF, "Graphic Layer", CS, 1, 1, 1) \
    ROW(0x00700003, 0xFFFFFFFF, "Bounding Box Annotation Units", CS, 1, 1, 1) \
    ROW(0x00700004, 0xFFFFFFFF, "Anchor Point Annotation Units", CS, 1, 1, 1) \
    ROW(0x00700005, 0xFFFFFFFF, "Graphic Annotation Units", CS, 1, 1, 1) \
    ROW(0x00700006, 0xFFFFFFFF, "Unformatted Text Value", ST, 1, 1, 1) \
    ROW(0x00700008, 0xFFFFFFFF, "Text Object Sequence", SQ, 1, 1, 1) \
    ROW(0x00700009, 0xFFFFFFFF, "Graphic Object Sequence", SQ, 1, 1, 1) \
    ROW(0x00700010, 0xFFFFFFFF, "Bounding Box Top Left Hand Corner", FL, 2, 2, 2) \
    ROW(0x00700011, 0xFFFFFFFF, "Bounding Box Bottom Right Hand Corner", FL, 2, 2, 2) \
    ROW(0x00700012, 0xFFFFFFFF, "Bounding Box Text Horizontal Justification", CS, 1, 1, 1) \
    ROW(0x00700014, 0xFFFFFFFF, "Anchor Point", FL, 2, 2, 2) \
    ROW(0x00700015, 0xFFFFFFFF, "Anchor Point Visibility", CS, 1, 1, 1) \
    ROW(0x00700020, 0xFFFFFFFF, "Graphic Dimensions", US, 1, 1, 1) \
    ROW(0x00700021, 0xFFFFFFFF, "Number of Graphic Points", US, 1, 1, 1) \
    ROW(0x00700022, 0xFFFFFFFF, "Graphic Data", FL, 2, n, 1) \
    ROW(0x00700023, 0xFFFFFFFF, "Graphic Type", CS, 1, 1, 1) \
    ROW(0x00700024, 0xFFFFFFFF, "Graphic Filled", CS, 1, 1, 1) \
    ROW(0x00700041, 0xFFFFFFFF, "Image Horizontal Flip", CS, 1, 1, 1) \
    ROW(0x00700042, 0xFFFFFFFF, "Image Rotation", US, 1, 1, 1) \
    ROW(0x00700052, 0xFFFFFFFF, "Displayed Area Top Left Hand Corner", SL, 2, 2, 2) \
    ROW(0x00700053, 0xFFFFFFFF, "Displayed Area Bottom Right Hand Corner", SL, 2, 2, 2) \
    ROW(0x0070005A, 0xFFFFFFFF, "Displayed Area Selection Sequence", SQ, 1, 1, 1) \
    ROW(0x00700060, 0xFFFFFFFF, "Graphic Layer Sequence", SQ, 1, 1, 1) \
    ROW(0x00700062, 0xFFFFFFFF, "Graphic Layer Order", IS, 1, 1, 1) \
    ROW(0x00700066, 0xFFFFFFFF, "Graphic Layer Recommended Display Grayscale Value", US, 1, 1, 1) \
    ROW(0x00700067, 0xFFFFFFFF, "Graphic Layer Recommended Display RGB Value", US, 3, 3, 3) \
    ROW(0x00700068, 0xFFFFFFFF, "Graphic Layer Description", LO, 1, 1, 1) \
    ROW(0x00700080, 0xFFFFFFFF, "Content Label", CS, 1, 1, 1) \
    ROW(0x00700081, 0xFFFFFFFF, "Content Description", LO, 1, 1, 1) \
    ROW(0x00700082, 0xFFFFFFFF, "Presentation Creation Date", DA, 1, 1, 1) \
    ROW(0x00700083, 0xFFFFFFFF, "Presentation Creation Time", TM, 1, 1, 1) \
    ROW(0x00700084, 0xFFFFFFFF, "Content Creator's Name", PN, 1, 1, 1) \
    ROW(0x00700100, 0xFFFFFFFF, "Presentation Size Mode", CS, 1, 1, 1) \
    ROW(0x00700101, 0xFFFFFFFF, "Presentation Pixel Spacing", DS, 2, 2, 2) \
    ROW(0x00700102, 0xFFFFFFFF, "Presentation Pixel Aspect Ratio", IS, 2, 2, 2) \
    ROW(0x00700103, 0xFFFFFFFF, "Presentation Pixel Magnification Ratio", FL, 1, 1, 1) \
    ROW(0x00700306, 0xFFFFFFFF, "Shape Type", CS, 1, 1, 1) \
    ROW(0x00700308, 0xFFFFFFFF, "Registration Sequence", SQ, 1, 1, 1) \
    ROW(0x00700309, 0xFFFFFFFF, "Matrix Registration Sequence", SQ, 1, 1, 1) \
    ROW(0x0070030A, 0xFFFFFFFF, "Matrix Sequence", SQ, 1, 1, 1) \
    ROW(0x0070030C, 0xFFFFFFFF, "Frame of Reference Transformation Matrix Type", CS, 1, 1, 1) \
    ROW(0x0070030D, 0xFFFFFFFF, "Registration Type Code Sequence", SQ, 1, 1, 1) \
    ROW(0x0070030F, 0xFFFFFFFF, "Fiducial Description", ST, 1, 1, 1) \
    ROW(0x00700310, 0xFFFFFFFF, "Fiducial Identifier", SH, 1, 1, 1) \
    ROW(0x00700311, 0xFFFFFFFF, "Fiducial Identifier Code Sequence", SQ, 1, 1, 1) \
    ROW(0x00700312, 0xFFFFFFFF, "Contour Uncertainty Radius", FD, 1, 1, 1) \
    ROW(0x00700314, 0xFFFFFFFF, "Used Fiducials Sequence", SQ, 1, 1, 1) \
    ROW(0x00700318, 0xFFFFFFFF, "Graphic Coordinates Data Sequence", SQ, 1, 1, 1) \
    ROW(0x0070031A, 0xFFFFFFFF, "Fiducial UID", UI, 1, 1, 1) \
    ROW(0x0070031C, 0xFFFFFFFF, "Fiducial Set Sequence", SQ, 1, 1, 1) \
    ROW(0x0070031E, 0xFFFFFFFF, "Fiducial Sequence", SQ, 1, 1, 1) \
    ROW(0x00880130, 0xFFFFFFFF, "Storage Media File-set ID", SH, 1, 1, 1) \
    ROW(0x00880140, 0xFFFFFFFF, "Storage Media File-set UID", UI, 1, 1, 1) \
    ROW(0x00880200, 0xFFFFFFFF, "Icon Image Sequence", SQ, 1, 1, 1) \
    ROW(0x00880904, 0xFFFFFFFF, "Topic Title", LO, 1, 1, 1) \
    ROW(0x00880906, 0xFFFFFFFF, "Topic Subject", ST, 1, 1, 1) \
    ROW(0x00880910, 0xFFFFFFFF, "Topic Author", LO, 1, 1, 1) \
    ROW(0x00880912, 0xFFFFFFFF, "Topic Keywords", LO, 1, 32, 1) \
    ROW(0x01000410, 0xFFFFFFFF, "SOP Instance Status", CS, 1, 1, 1) \
    ROW(0x01000420, 0xFFFFFFFF, "SOP Authorization Date and Time", DT, 1, 1, 1) \
    ROW(0x01000424, 0xFFFFFFFF, "SOP Authorization Comment", LT, 1, 1, 1) \
    ROW(0x01000426, 0xFFFFFFFF, "Authorization Equipment Certification Number", LO, 1, 1, 1) \
    ROW(0x04000005, 0xFFFFFFFF, "MAC ID Number", US, 1, 1, 1) \
    ROW(0x04000010, 0xFFFFFFFF, "MAC Calculation Transfer Syntax UID", UI, 1, 1, 1) \
    ROW(0x04000015, 0xFFFFFFFF, "MAC Algorithm", CS, 1, 1, 1) \
    ROW(0x04000020, 0xFFFFFFFF, "Data Elements Signed", AT, 1, n, 1) \
    ROW(0x04000100, 0xFFFFFFFF, "Digital Signature UID", UI, 1, 1, 1) \
    ROW(0x04000105, 0xFFFFFFFF, "Digital Signature DateTime", DT, 1, 1, 1) \
    ROW(0x04000110, 0xFFFFFFFF, "Certificate Type", CS, 1, 1, 1) \
    ROW(0x04000115, 0xFFFFFFFF, "Certificate of Signer", OB, 1, 1, 1) \
    ROW(0x04000120, 0xFFFFFFFF, "Signature", OB, 1, 1, 1) \
    ROW(0x04000305, 0xFFFFFFFF, "Certified Timestamp Type", CS, 1, 1, 1) \
    ROW(0x04000310, 0xFFFFFFFF, "Certified Timestamp", OB, 1, 1, 1) \
    ROW(0x04000500, 0xFFFFFFFF, "Encrypted Attributes Sequence", SQ, 1, 1, 1) \
    ROW(0x04000510, 0xFFFFFFFF, "Encrypted Content Transfer Syntax UID", UI, 1, 1, 1) \
    ROW(0x04000520, 0xFFFFFFFF, "Encrypted Content", OB, 1, 1, 1) \
    ROW(0x04000550, 0xFFFFFFFF, "Modified Attributes Sequence", SQ, 1, 1, 1) \
    ROW(0x10000001, 0xFFFFFF0F, "Run Length Triplet", US, 3, 3, 3) \
    ROW(0x10000002, 0xFFFFFF0F, "Huffman Table Size", US, 1, 1, 1) \
    ROW(0x10000003, 0xFFFFFF0F, "Huffman Table Triplet", US, 3, 3, 3) \
    ROW(0x10000004, 0xFFFFFF0F, "Shift Table Size", US, 1, 1, 1) \
    ROW(0x10000005, 0xFFFFFF0F, "Shift Table Triplet", US, 3, 3, 3) \
    ROW(0x10000010, 0xFFFFFFFF, "Escape Triplet", US, 3, 3, 3) \
    ROW(0x10100004, 0xFFFFFFFF, "Zonal Map", US, 1, n, 1) \
    ROW(0x20000010, 0xFFFFFFFF, "Number of Copies", IS, 1, 1, 1) \
    ROW(0x2000001E, 0xFFFFFFFF, "Printer Configuration Sequence", SQ, 1, 1, 1) \
    ROW(0x20000020, 0xFFFFFFFF, "Print Priority", CS, 1, 1, 1) \
    ROW(0x20000030, 0xFFFFFFFF, "Medium Type", CS, 1, 1, 1) \
    ROW(0x20000040, 0xFFFFFFFF, "Film Destination", CS, 1, 1, 1) \
    ROW(0x20000050, 0xFFFFFFFF, "Film Session Label", LO, 1, 1, 1) \
    ROW(0x20000060, 0xFFFFFFFF, "Memory Allocation", IS, 1, 1, 1) \
    ROW(0x20000061, 0xFFFFFFFF, "Maximum Memory Allocation", IS, 1, 1, 1) \
    ROW(0x20000062, 0xFFFFFFFF, "Color Image Printing Flag", CS, 1, 1, 1) \
    ROW(0x20000063, 0xFFFFFFFF, "Collation Flag", CS, 1, 1, 1) \
    ROW(0x20000065, 0xFFFFFFFF, "Annotation Flag", CS, 1, 1, 1) \
    ROW(0x20000067, 0xFFFFFFFF, "Image Overlay Flag", CS, 1, 1, 1) \
    ROW(0x20000069, 0xFFFFFFFF, "Presentation LUT Flag", CS, 1, 1, 1) \
    ROW(0x2000006A, 0xFFFFFFFF, "Image Box Presentation LUT Flag", CS, 1, 1, 1) \
    ROW(0x200000A0, 0xFFFFFFFF, "Memory Bit Depth", US, 1, 1, 1) \
    ROW(0x200000A1, 0xFFFFFFFF, "Printing Bit Depth", US, 1, 1, 1) \
    ROW(0x200000A2, 0xFFFFFFFF, "Media Installed Sequence", SQ, 1, 1, 1) \
    ROW(0x200000A4, 0xFFFFFFFF, "Other Media Available Sequence", SQ, 1, 1, 1) \
    ROW(0x200000A8, 0xFFFFFFFF, "Supported Image Display Formats Sequence", SQ, 1, 1, 1) \
    ROW(0x20000500, 0xFFFFFFFF, "Referenced Film Box Sequence", SQ, 1, 1, 1) \
    ROW(0x20000510, 0xFFFFFFFF, "Referenced Stored Print Sequence", SQ, 1, 1, 1) \
    ROW(0x20100010, 0xFFFFFFFF, "Image Display Format", ST, 1, 1, 1) \
    ROW(0x20100030, 0xFFFFFFFF, "Annotation Display Format ID", CS, 1, 1, 1) \
    ROW(0x20100040, 0xFFFFFFFF, "Film Orientation", CS, 1, 1, 1) \
    ROW(0x20100050, 0xFFFFFFFF, "Film Size ID", CS, 1, 1, 1) \
    ROW(0x20100052, 0xFFFFFFFF, "Printer Resolution ID", CS, 1, 1, 1) \
    ROW(0x20100054, 0xFFFFFFFF, "Default Printer Resolution ID", CS, 1, 1, 1) \
    ROW(0x20100060, 0xFFFFFFFF, "Magnification Type", CS, 1, 1, 1) \
    ROW(0x20100080, 0xFFFFFFFF, "Smoothing Type", CS, 1, 1, 1) \
    ROW(0x201000A6, 0xFFFFFFFF, "Default Magnification Type", CS, 1, 1, 1) \
    ROW(0x201000A7, 0xFFFFFFFF, "Other Magnification Types Available", CS, 1, n, 1) \
    ROW(0x201000A8, 0xFFFFFFFF, "Default Smoothing Type", CS, 1, 1, 1) \
    ROW(0x201000A9, 0xFFFFFFFF, "Other Smoothing Types Available", CS, 1, n, 1) \
    ROW(0x20100100, 0xFFFFFFFF, "Border Density", CS, 1, 1, 1) \
    ROW(0x20100110, 0xFFFFFFFF, "Empty Image Density", CS, 1, 1, 1) \
    ROW(0x20100120, 0xFFFFFFFF, "Min Density", US, 1, 1, 1) \
    ROW(0x20100130, 0xFFFFFFFF, "Max Density", US, 1, 1, 1) \
    ROW(0x20100140, 0xFFFFFFFF, "Trim", CS, 1, 1, 1) \
    ROW(0x20100150, 0xFFFFFFFF, "Configuration Information", ST, 1, 1, 1) \
    ROW(0x20100152, 0xFFFFFFFF, "Configuration Information Description", LT, 1, 1, 1) \
    ROW(0x20100154, 0xFFFFFFFF, "Maximum Collated Films", IS, 1, 1, 1) \
    ROW(0x2010015E, 0xFFFFFFFF, "Illumination", US, 1, 1, 1) \
    ROW(0x20100160, 0xFFFFFFFF, "Reflected Ambient Light", US, 1, 1, 1) \
    ROW(0x20100376, 0xFFFFFFFF, "Printer Pixel Spacing", DS, 2, 2, 2) \
    ROW(0x20100500, 0xFFFFFFFF, "Referenced Film Session Sequence", SQ, 1, 1, 1) \
    ROW(0x20100510, 0xFFFFFFFF, "Referenced Image Box Sequence", SQ, 1, 1, 1) \
    ROW(0x20100520, 0xFFFFFFFF, "Referenced Basic Annotation Box Sequence", SQ, 1, 1, 1) \
    ROW(0x20200010, 0xFFFFFFFF, "Image Box Position", US, 1, 1, 1) \
    ROW(0x20200020, 0xFFFFFFFF, "Polarity", CS, 1, 1, 1) \
    ROW(0x20200030, 0xFFFFFFFF, "Requested Image Size", DS, 1, 1, 1) \
    ROW(0x20200040, 0xFFFFFFFF, "Requested Decimate/Crop Behavior", CS, 1, 1, 1) \
    ROW(0x20200050, 0xFFFFFFFF, "Requested Resolution ID", CS, 1, 1, 1) \
    ROW(0x202000A0, 0xFFFFFFFF, "Requested Image Size Flag", CS, 1, 1, 1) \
    ROW(0x202000A2, 0xFFFFFFFF, "Decimate/Crop Result", CS, 1, 1, 1) \
    ROW(0x20200110, 0xFFFFFFFF, "Basic Grayscale Image Sequence", SQ, 1, 1, 1) \
    ROW(0x20200111, 0xFFFFFFFF, "Basic Color Image Sequence", SQ, 1, 1, 1) \
    ROW(0x20200130, 0xFFFFFFFF, "Referenced Image Overlay Box Sequence", SQ, 1, 1, 1) \
    ROW(0x20200140, 0xFFFFFFFF, "Referenced VOI LUT Box Sequence", SQ, 1, 1, 1) \
    ROW(0x20300010, 0xFFFFFFFF, "Annotation Position", US, 1, 1, 1) \
    ROW(0x20300020, 0xFFFFFFFF, "Text String", LO, 1, 1, 1) \
    ROW(0x20400010, 0xFFFFFFFF, "Referenced Overlay Plane Sequence", SQ, 1, 1, 1) \
    ROW(0x20400011, 0xFFFFFFFF, "Referenced Overlay Plane Groups", US, 1, 99, 1) \
    ROW(0x20400020, 0xFFFFFFFF, "Overlay Pixel Data Sequence", SQ, 1, 1, 1) \
    ROW(0x20400060, 0xFFFFFFFF, "Overlay Magnification Type", CS, 1, 1, 1) \
    ROW(0x20400070, 0xFFFFFFFF, "Overlay Smoothing Type", CS, 1, 1, 1) \
    ROW(0x20400072, 0xFFFFFFFF, "Overlay or Image Magnification", CS, 1, 1, 1) \
    ROW(0x20400074, 0xFFFFFFFF, "Magnify to Number of Columns", US, 1, 1, 1) \
    ROW(0x20400080, 0xFFFFFFFF, "Overlay Foreground Density", CS, 1, 1, 1) \
    ROW(0x20400082, 0xFFFFFFFF, "Overlay Background Density", CS, 1, 1, 1) \
    ROW(0x20400090, 0xFFFFFFFF, "Overlay Mode", CS, 1, 1, 1) \
    ROW(0x20400100, 0xFFFFFFFF, "Threshold Density", CS, 1, 1, 1) \
    ROW(0x20400500, 0xFFFFFFFF, "Referenced Image Box Sequence (Retired)", SQ, 1, 1, 1) \
    ROW(0x20500010, 0xFFFFFFFF, "Presentation LUT Sequence", SQ, 1, 1, 1) \
    ROW(0x20500020, 0xFFFFFFFF, "Presentation LUT Shape", CS, 1, 1, 1) \
    ROW(0x20500500, 0xFFFFFFFF, "Referenced Presentation LUT Sequence", SQ, 1, 1, 1) \
    ROW(0x21000010, 0xFFFFFFFF, "Print Job ID", SH, 1, 1, 1) \
    ROW(0x21000020, 0xFFFFFFFF, "Execution Status", CS, 1, 1, 1) \
    ROW(0x21000030, 0xFFFFFFFF, "Execution Status Info", CS, 1, 1, 1) \
    ROW(0x21000040, 0xFFFFFFFF, "Creation Date", DA, 1, 1, 1) \
    ROW(0x21000050, 0xFFFFFFFF, "Creation Time", TM, 1, 1, 1) \
    ROW(0x21000070, 0xFFFFFFFF, "Originator", AE, 1, 1, 1) \
    ROW(0x21000140, 0xFFFFFFFF, "Destination AE", AE, 1, 1, 1) \
    ROW(0x21000160, 0xFFFFFFFF, "Owner ID", SH, 1, 1, 1) \
    ROW(0x21000170, 0xFFFFFFFF, "Number of Films", IS, 1, 1, 1) \
    ROW(0x21000500, 0xFFFFFFFF, "Referenced Print Job Sequence", SQ, 1, 1, 1) \
    ROW(0x21100010, 0xFFFFFFFF, "Printer Status", CS, 1, 1, 1) \
    ROW(0x21100020, 0xFFFFFFFF, "Printer Status Info", CS, 1, 1, 1) \
    ROW(0x21100030, 0xFFFFFFFF, "Printer Name", LO, 1, 1, 1) \
    ROW(0x21100099, 0xFFFFFFFF, "Print Queue ID", SH, 1, 1, 1) \
    ROW(0x21200010, 0xFFFFFFFF, "Queue Status", CS, 1, 1, 1) \
    ROW(0x21200050, 0xFFFFFFFF, "Print Job Description Sequence", SQ, 1, 1, 1) \
    ROW(0x21200070, 0xFFFFFFFF, "Referenced Print Job Sequence", SQ, 1, 1, 1) \
    ROW(0x21300010, 0xFFFFFFFF, "Print Management Capabilities Sequence", SQ, 1, 1, 1) \
    ROW(0x21300015, 0xFFFFFFFF, "Printer Characteristics Sequence", SQ, 1, 1, 1) \
    ROW(0x21300030, 0xFFFFFFFF, "Film Box Content Sequence", SQ, 1, 1, 1) \
    ROW(0x21300040, 0xFFFFFFFF, "Image Box Content Sequence", SQ, 1, 1, 1) \
    ROW(0x21300050, 0xFFFFFFFF, "Annotation Content Sequence", SQ, 1, 1, 1) \
    ROW(0x21300060, 0xFFFFFFFF, "Image Overlay Box Content Sequence", SQ, 1, 1, 1) \
    ROW(0x21300080, 0xFFFFFFFF, "Presentation LUT Content Sequence", SQ, 1, 1, 1) \
    ROW(0x213000A0, 0xFFFFFFFF, "Proposed Study Sequence", SQ, 1, 1, 1) \
    ROW(0x213000C0, 0xFFFFFFFF, "Original Image Sequence", SQ, 1, 1, 1) \
    ROW(0x22000001, 0xFFFFFFFF, "Label Using Information Extracted From Instances", CS, 1, 1, 1) \
    ROW(0x22000002, 0xFFFFFFFF, "Label Text", UT, 1, 1, 1) \
    ROW(0x22000003, 0xFFFFFFFF, "Label Style Selection", CS, 1, 1, 1) \
    ROW(0x22000004, 0xFFFFFFFF, "Media Disposition", LT, 1, 1, 1) \
    ROW(0x22000005, 0xFFFFFFFF, "Barcode Value", LT, 1, 1, 1) \
    ROW(0x22000006, 0xFFFFFFFF, "Barcode Symbology", CS, 1, 1, 1) \
    ROW(0x22000007, 0xFFFFFFFF, "Allow Media Splitting", CS, 1, 1, 1) \
    ROW(0x22000008, 0xFFFFFFFF, "Include Non-DICOM Objects", CS, 1, 1, 1) \
    ROW(0x22000009, 0xFFFFFFFF, "Include Display Application", CS, 1, 1, 1) \
    ROW(0x2200000A, 0xFFFFFFFF, "Preserve Composite Instances After Media Creation", CS, 1, 1, 1) \
    ROW(0x2200000B, 0xFFFFFFFF, "Total Number of Pieces of Media Created", US, 1, 1, 1) \
    ROW(0x2200000C, 0xFFFFFFFF, "Requested Media Application Profile", LO, 1, 1, 1) \
    ROW(0x2200000D, 0xFFFFFFFF, "Referenced Storage Media Sequence", SQ, 1, 1, 1) \
    ROW(0x2200000E, 0xFFFFFFFF, "Failure Attributes", AT, 1, n, 1) \
    ROW(0x2200000F, 0xFFFFFFFF, "Allow Lossy Compression", CS, 1, 1, 1) \
    ROW(0x22000020, 0xFFFFFFFF, "Request Priority", CS, 1, 1, 1) \
    ROW(0x30020002, 0xFFFFFFFF, "RT Image Label", SH, 1, 1, 1) \
    ROW(0x30020003, 0xFFFFFFFF, "RT Image Name", LO, 1, 1, 1) \
    ROW(0x30020004, 0xFFFFFFFF, "RT Image Description", ST, 1, 1, 1) \
    ROW(0x3002000A, 0xFFFFFFFF, "Reported Values Origin", CS, 1, 1, 1) \
    ROW(0x3002000C, 0xFFFFFFFF, "RT Image Plane", CS, 1, 1, 1) \
    ROW(0x3002000D, 0xFFFFFFFF, "X-Ray Image Receptor Translation", DS, 3, 3, 3) \
    ROW(0x3002000E, 0xFFFFFFFF, "X-Ray Image Receptor Angle", DS, 1, 1, 1) \
    ROW(0x30020010, 0xFFFFFFFF, "RT Image Orientation", DS, 6, 6, 6) \
    ROW(0x30020011, 0xFFFFFFFF, "Image Plane Pixel Spacing", DS, 2, 2, 2) \
    ROW(0x30020012, 0xFFFFFFFF, "RT Image Position", DS, 2, 2, 2) \
    ROW(0x30020020, 0xFFFFFFFF, "Radiation Machine Name", SH, 1, 1, 1) \
    ROW(0x30020022, 0xFFFFFFFF, "Radiation Machine SAD", DS, 1, 1, 1) \
    ROW(0x30020024, 0xFFFFFFFF, "Radiation Machine SSD", DS, 1, 1, 1) \
    ROW(0x30020026, 0xFFFFFFFF, "RT Image SID", DS, 1, 1, 1) \
    ROW(0x30020028, 0xFFFFFFFF, "Source to Reference Object Distance", DS, 1, 1, 1) \
    ROW(0x30020029, 0xFFFFFFFF, "Fraction Number", IS, 1, 1, 1) \
    ROW(0x30020030, 0xFFFFFFFF, "Exposure Sequence", SQ, 1, 1, 1) \
    ROW(0x30020032, 0xFFFFFFFF, "Meterset Exposure", DS, 1, 1, 1) \
    ROW(0x30020034, 0xFFFFFFFF, "Diaphragm Position", DS, 4, 4, 4) \
    ROW(0x30020040, 0xFFFFFFFF, "Fluence Map Sequence", SQ, 1, 1, 1) \
    ROW(0x30020041, 0xFFFFFFFF, "Fluence Data Source", CS, 1, 1, 1) \
    ROW(0x30020042, 0xFFFFFFFF, "Fluence Data Scale", DS, 1, 1, 1) \
    ROW(0x30040001, 0xFFFFFFFF, "DVH Type", CS, 1, 1, 1) \
    ROW(0x30040002, 0xFFFFFFFF, "Dose Units", CS, 1, 1, 1) \
    ROW(0x30040004, 0xFFFFFFFF, "Dose Type", CS, 1, 1, 1) \
    ROW(0x30040006, 0xFFFFFFFF, "Dose Comment", LO, 1, 1, 1) \
    ROW(0x30040008, 0xFFFFFFFF, "Normalization Point", DS, 3, 3, 3) \
    ROW(0x3004000A, 0xFFFFFFFF, "Dose Summation Type", CS, 1, 1, 1) \
    ROW(0x3004000C, 0xFFFFFFFF, "Grid Frame Offset Vector", DS, 2, n, 1) \
    ROW(0x3004000E, 0xFFFFFFFF, "Dose Grid Scaling", DS, 1, 1, 1) \
    ROW(0x30040010, 0xFFFFFFFF, "RT Dose ROI Sequence", SQ, 1, 1, 1) \
    ROW(0x30040012, 0xFFFFFFFF, "Dose Value", DS, 1, 1, 1) \
    ROW(0x30040014, 0xFFFFFFFF, "Tissue Heterogeneity Correction", CS, 1, 3, 1) \
    ROW(0x30040040, 0xFFFFFFFF, "DVH Normalization Point", DS, 3, 3, 3) \
    ROW(0x30040042, 0xFFFFFFFF, "DVH Normalization Dose Value", DS, 1, 1, 1) \
    ROW(0x30040050, 0xFFFFFFFF, "DVH Sequence", SQ, 1, 1, 1) \
    ROW(0x30040052, 0xFFFFFFFF, "DVH Dose Scaling", DS, 1, 1, 1) \
    ROW(0x30040054, 0xFFFFFFFF, "DVH Volume Units", CS, 1, 1, 1) \
    ROW(0x30040056, 0xFFFFFFFF, "DVH Number of Bins", IS, 1, 1, 1) \
    ROW(0x30040058, 0xFFFFFFFF, "DVH Data", DS, 2, n, 2) \
    ROW(0x30040060, 0xFFFFFFFF, "DVH Referenced ROI Sequence", SQ, 1, 1, 1) \
    ROW(0x30040062, 0xFFFFFFFF, "DVH ROI Contribution Type", CS, 1, 1, 1) \
    ROW(0x30040070, 0xFFFFFFFF, "DVH Minimum Dose", DS, 1, 1, 1) \
    ROW(0x30040072, 0xFFFFFFFF, "DVH Maximum Dose", DS, 1, 1, 1) \
    ROW(0x30040074, 0xFFFFFFFF, "DVH Mean Dose", DS, 1, 1, 1) \
    ROW(0x30060002, 0xFFFFFFFF, "Structure Set Label", SH, 1, 1, 1) \
    ROW(0x30060004, 0xFFFFFFFF, "Structure Set Name", LO, 1, 1, 1) \
    ROW(0x30060006, 0xFFFFFFFF, "Structure Set Description", ST, 1, 1, 1) \
    ROW(0x30060008, 0xFFFFFFFF, "Structure Set Date", DA, 1, 1, 1) \
    ROW(0x30060009, 0xFFFFFFFF, "Structure Set Time", TM, 1, 1, 1) \
    ROW(0x30060010, 0xFFFFFFFF, "Referenced Frame of Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x30060012, 0xFFFFFFFF, "RT Referenced Study Sequence", SQ, 1, 1, 1) \
    ROW(0x30060014, 0xFFFFFFFF, "RT Referenced Series Sequence", SQ, 1, 1, 1) \
    ROW(0x30060016, 0xFFFFFFFF, "Contour Image Sequence", SQ, 1, 1, 1) \
    ROW(0x30060020, 0xFFFFFFFF, "Structure Set ROI Sequence", SQ, 1, 1, 1) \
    ROW(0x30060022, 0xFFFFFFFF, "ROI Number", IS, 1, 1, 1) \
    ROW(0x30060024, 0xFFFFFFFF, "Referenced Frame of Reference UID", UI, 1, 1, 1) \
    ROW(0x30060026, 0xFFFFFFFF, "ROI Name", LO, 1, 1, 1) \
    ROW(0x30060028, 0xFFFFFFFF, "ROI Description", ST, 1, 1, 1) \
    ROW(0x3006002A, 0xFFFFFFFF, "ROI Display Color", IS, 3, 3, 3) \
    ROW(0x3006002C, 0xFFFFFFFF, "ROI Volume", DS, 1, 1, 1) \
    ROW(0x30060030, 0xFFFFFFFF, "RT Related ROI Sequence", SQ, 1, 1, 1) \
    ROW(0x30060033, 0xFFFFFFFF, "RT ROI Relationship", CS, 1, 1, 1) \
    ROW(0x30060036, 0xFFFFFFFF, "ROI Generation Algorithm", CS, 1, 1, 1) \
    ROW(0x30060038, 0xFFFFFFFF, "ROI Generation Description", LO, 1, 1, 1) \
    ROW(0x30060039, 0xFFFFFFFF, "ROI Contour Sequence", SQ, 1, 1, 1) \
    ROW(0x30060040, 0xFFFFFFFF, "Contour Sequence", SQ, 1, 1, 1) \
    ROW(0x30060042, 0xFFFFFFFF, "Contour Geometric Type", CS, 1, 1, 1) \
    ROW(0x30060044, 0xFFFFFFFF, "Contour Slab Thickness", DS, 1, 1, 1) \
    ROW(0x30060045, 0xFFFFFFFF, "Contour Offset Vector", DS, 3, 3, 3) \
    ROW(0x30060046, 0xFFFFFFFF, "Number of Contour Points", IS, 1, 1, 1) \
    ROW(0x30060048, 0xFFFFFFFF, "Contour Number", IS, 1, 1, 1) \
    ROW(0x30060049, 0xFFFFFFFF, "Attached Contours", IS, 1, n, 1) \
    ROW(0x30060050, 0xFFFFFFFF, "Contour Data", DS, 3, n, 3) \
    ROW(0x30060080, 0xFFFFFFFF, "RT ROI Observations Sequence", SQ, 1, 1, 1) \
    ROW(0x30060082, 0xFFFFFFFF, "Observation Number", IS, 1, 1, 1) \
    ROW(0x30060084, 0xFFFFFFFF, "Referenced ROI Number", IS, 1, 1, 1) \
    ROW(0x30060085, 0xFFFFFFFF, "ROI Observation Label", SH, 1, 1, 1) \
    ROW(0x30060086, 0xFFFFFFFF, "RT ROI Identification Code Sequence", SQ, 1, 1, 1) \
    ROW(0x30060088, 0xFFFFFFFF, "ROI Observation Description", ST, 1, 1, 1) \
    ROW(0x300600A0, 0xFFFFFFFF, "Related RT ROI Observations Sequence", SQ, 1, 1, 1) \
    ROW(0x300600A4, 0xFFFFFFFF, "RT ROI Interpreted Type", CS, 1, 1, 1) \
    ROW(0x300600A6, 0xFFFFFFFF, "ROI Interpreter", PN, 1, 1, 1) \
    ROW(0x300600B0, 0xFFFFFFFF, "ROI Physical Properties Sequence", SQ, 1, 1, 1) \
    ROW(0x300600B2, 0xFFFFFFFF, "ROI Physical Property", CS, 1, 1, 1) \
    ROW(0x300600B4, 0xFFFFFFFF, "ROI Physical Property Value", DS, 1, 1, 1) \
    ROW(0x300600C0, 0xFFFFFFFF, "Frame of Reference Relationship Sequence", SQ, 1, 1, 1) \
    ROW(0x300600C2, 0xFFFFFFFF, "Related Frame of Reference UID", UI, 1, 1, 1) \
    ROW(0x300600C4, 0xFFFFFFFF, "Frame of Reference Transformation Type", CS, 1, 1, 1) \
    ROW(0x300600C6, 0xFFFFFFFF, "Frame of Reference Transformation Matrix", DS, 16, 16, 16) \
    ROW(0x300600C8, 0xFFFFFFFF, "Frame of Reference Transformation Comment", LO, 1, 1, 1) \
    ROW(0x30080010, 0xFFFFFFFF, "Measured Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x30080012, 0xFFFFFFFF, "Measured Dose Description", ST, 1, 1, 1) \
    ROW(0x30080014, 0xFFFFFFFF, "Measured Dose Type", CS, 1, 1, 1) \
    ROW(0x30080016, 0xFFFFFFFF, "Measured Dose Value", DS, 1, 1, 1) \
    ROW(0x30080020, 0xFFFFFFFF, "Treatment Session Beam Sequence", SQ, 1, 1, 1) \
    ROW(0x30080022, 0xFFFFFFFF, "Current Fraction Number", IS, 1, 1, 1) \
    ROW(0x30080024, 0xFFFFFFFF, "Treatment Control Point Date", DA, 1, 1, 1) \
    ROW(0x30080025, 0xFFFFFFFF, "Treatment Control Point Time", TM, 1, 1, 1) \
    ROW(0x3008002A, 0xFFFFFFFF, "Treatment Termination Status", CS, 1, 1, 1) \
    ROW(0x3008002B, 0xFFFFFFFF, "Treatment Termination Code", SH, 1, 1, 1) \
    ROW(0x3008002C, 0xFFFFFFFF, "Treatment Verification Status", CS, 1, 1, 1) \
    ROW(0x30080030, 0xFFFFFFFF, "Referenced Treatment Record Sequence", SQ, 1, 1, 1) \
    ROW(0x30080032, 0xFFFFFFFF, "Specified Primary Meterset", DS, 1, 1, 1) \
    ROW(0x30080033, 0xFFFFFFFF, "Specified Secondary Meterset", DS, 1, 1, 1) \
    ROW(0x30080036, 0xFFFFFFFF, "Delivered Primary Meterset", DS, 1, 1, 1) \
    ROW(0x30080037, 0xFFFFFFFF, "Delivered Secondary Meterset", DS, 1, 1, 1) \
    ROW(0x3008003A, 0xFFFFFFFF, "Specified Treatment Time", DS, 1, 1, 1) \
    ROW(0x3008003B, 0xFFFFFFFF, "Delivered Treatment Time", DS, 1, 1, 1) \
    ROW(0x30080040, 0xFFFFFFFF, "Control Point Delivery Sequence", SQ, 1, 1, 1) \
    ROW(0x30080042, 0xFFFFFFFF, "Specified Meterset", DS, 1, 1, 1) \
    ROW(0x30080044, 0xFFFFFFFF, "Delivered Meterset", DS, 1, 1, 1) \
    ROW(0x30080048, 0xFFFFFFFF, "Dose Rate Delivered", DS, 1, 1, 1) \
    ROW(0x30080050, 0xFFFFFFFF, "Treatment Summary Calculated Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x30080052, 0xFFFFFFFF, "Cumulative Dose to Dose Reference", DS, 1, 1, 1) \
    ROW(0x30080054, 0xFFFFFFFF, "First Treatment Date", DA, 1, 1, 1) \
    ROW(0x30080056, 0xFFFFFFFF, "Most Recent Treatment Date", DA, 1, 1, 1) \
    ROW(0x3008005A, 0xFFFFFFFF, "Number of Fractions Delivered", IS, 1, 1, 1) \
    ROW(0x30080060, 0xFFFFFFFF, "Override Sequence", SQ, 1, 1, 1) \
    ROW(0x30080062, 0xFFFFFFFF, "Override Parameter Pointer", AT, 1, 1, 1) \
    ROW(0x30080064, 0xFFFFFFFF, "Measured Dose Reference Number", IS, 1, 1, 1) \
    ROW(0x30080066, 0xFFFFFFFF, "Override Reason", ST, 1, 1, 1) \
    ROW(0x30080070, 0xFFFFFFFF, "Calculated Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x30080072, 0xFFFFFFFF, "Calculated Dose Reference Number", IS, 1, 1, 1) \
    ROW(0x30080074, 0xFFFFFFFF, "Calculated Dose Reference Description", ST, 1, 1, 1) \
    ROW(0x30080076, 0xFFFFFFFF, "Calculated Dose Reference Dose Value", DS, 1, 1, 1) \
    ROW(0x30080078, 0xFFFFFFFF, "Start Meterset", DS, 1, 1, 1) \
    ROW(0x3008007A, 0xFFFFFFFF, "End Meterset", DS, 1, 1, 1) \
    ROW(0x30080080, 0xFFFFFFFF, "Referenced Measured Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x30080082, 0xFFFFFFFF, "Referenced Measured Dose Reference Number", IS, 1, 1, 1) \
    ROW(0x30080090, 0xFFFFFFFF, "Referenced Calculated Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x30080092, 0xFFFFFFFF, "Referenced Calculated Dose Reference Number", IS, 1, 1, 1) \
    ROW(0x300800A0, 0xFFFFFFFF, "Beam Limiting Device Leaf Pairs Sequence", SQ, 1, 1, 1) \
    ROW(0x300800B0, 0xFFFFFFFF, "Recorded Wedge Sequence", SQ, 1, 1, 1) \
    ROW(0x300800C0, 0xFFFFFFFF, "Recorded Compensator Sequence", SQ, 1, 1, 1) \
    ROW(0x300800D0, 0xFFFFFFFF, "Recorded Block Sequence", SQ, 1, 1, 1) \
    ROW(0x300800E0, 0xFFFFFFFF, "Treatment Summary Measured Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x30080100, 0xFFFFFFFF, "Recorded Source Sequence", SQ, 1, 1, 1) \
    ROW(0x30080105, 0xFFFFFFFF, "Source Serial Number", LO, 1, 1, 1) \
    ROW(0x30080110, 0xFFFFFFFF, "Treatment Session Application Setup Sequence", SQ, 1, 1, 1) \
    ROW(0x30080116, 0xFFFFFFFF, "Application Setup Check", CS, 1, 1, 1) \
    ROW(0x30080120, 0xFFFFFFFF, "Recorded Brachy Accessory Device Sequence", SQ, 1, 1, 1) \
    ROW(0x30080122, 0xFFFFFFFF, "Referenced Brachy Accessory Device Number", IS, 1, 1, 1) \
    ROW(0x30080130, 0xFFFFFFFF, "Recorded Channel Sequence", SQ, 1, 1, 1) \
    ROW(0x30080132, 0xFFFFFFFF, "Specified Channel Total Time", DS, 1, 1, 1) \
    ROW(0x30080134, 0xFFFFFFFF, "Delivered Channel Total Time", DS, 1, 1, 1) \
    ROW(0x30080136, 0xFFFFFFFF, "Specified Number of Pulses", IS, 1, 1, 1) \
    ROW(0x30080138, 0xFFFFFFFF, "Delivered Number of Pulses", IS, 1, 1, 1) \
    ROW(0x3008013A, 0xFFFFFFFF, "Specified Pulse Repetition Interval", DS, 1, 1, 1) \
    ROW(0x3008013C, 0xFFFFFFFF, "Delivered Pulse Repetition Interval", DS, 1, 1, 1) \
    ROW(0x30080140, 0xFFFFFFFF, "Recorded Source Applicator Sequence", SQ, 1, 1, 1) \
    ROW(0x30080142, 0xFFFFFFFF, "Referenced Source Applicator Number", IS, 1, 1, 1) \
    ROW(0x30080150, 0xFFFFFFFF, "Recorded Channel Shield Sequence", SQ, 1, 1, 1) \
    ROW(0x30080152, 0xFFFFFFFF, "Referenced Channel Shield Number", IS, 1, 1, 1) \
    ROW(0x30080160, 0xFFFFFFFF, "Brachy Control Point Delivered Sequence", SQ, 1, 1, 1) \
    ROW(0x30080162, 0xFFFFFFFF, "Safe Position Exit Date", DA, 1, 1, 1) \
    ROW(0x30080164, 0xFFFFFFFF, "Safe Position Exit Time", TM, 1, 1, 1) \
    ROW(0x30080166, 0xFFFFFFFF, "Safe Position Return Date", DA, 1, 1, 1) \
    ROW(0x30080168, 0xFFFFFFFF, "Safe Position Return Time", TM, 1, 1, 1) \
    ROW(0x30080200, 0xFFFFFFFF, "Current Treatment Status", CS, 1, 1, 1) \
    ROW(0x30080202, 0xFFFFFFFF, "Treatment Status Comment", ST, 1, 1, 1) \
    ROW(0x30080220, 0xFFFFFFFF, "Fraction Group Summary Sequence", SQ, 1, 1, 1) \
    ROW(0x30080223, 0xFFFFFFFF, "Referenced Fraction Number", IS, 1, 1, 1) \
    ROW(0x30080224, 0xFFFFFFFF, "Fraction Group Type", CS, 1, 1, 1) \
    ROW(0x30080230, 0xFFFFFFFF, "Beam Stopper Position", CS, 1, 1, 1) \
    ROW(0x30080240, 0xFFFFFFFF, "Fraction Status Summary Sequence", SQ, 1, 1, 1) \
    ROW(0x30080250, 0xFFFFFFFF, "Treatment Date", DA, 1, 1, 1) \
    ROW(0x30080251, 0xFFFFFFFF, "Treatment Time", TM, 1, 1, 1) \
    ROW(0x300A0002, 0xFFFFFFFF, "RT Plan Label", SH, 1, 1, 1) \
    ROW(0x300A0003, 0xFFFFFFFF, "RT Plan Name", LO, 1, 1, 1) \
    ROW(0x300A0004, 0xFFFFFFFF, "RT Plan Description", ST, 1, 1, 1) \
    ROW(0x300A0006, 0xFFFFFFFF, "RT Plan Date", DA, 1, 1, 1) \
    ROW(0x300A0007, 0xFFFFFFFF, "RT Plan Time", TM, 1, 1, 1) \
    ROW(0x300A0009, 0xFFFFFFFF, "Treatment Protocols", LO, 1, n, 1) \
    ROW(0x300A000A, 0xFFFFFFFF, "Plan Intent", CS, 1, 1, 1) \
    ROW(0x300A000B, 0xFFFFFFFF, "Treatment Sites", LO, 1, n, 1) \
    ROW(0x300A000C, 0xFFFFFFFF, "RT Plan Geometry", CS, 1, 1, 1) \
    ROW(0x300A000E, 0xFFFFFFFF, "Prescription Description", ST, 1, 1, 1) \
    ROW(0x300A0010, 0xFFFFFFFF, "Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0012, 0xFFFFFFFF, "Dose Reference Number", IS, 1, 1, 1) \
    ROW(0x300A0013, 0xFFFFFFFF, "Dose Reference UID", UI, 1, 1, 1) \
    ROW(0x300A0014, 0xFFFFFFFF, "Dose Reference Structure Type", CS, 1, 1, 1) \
    ROW(0x300A0015, 0xFFFFFFFF, "Nominal Beam Energy Unit", CS, 1, 1, 1) \
    ROW(0x300A0016, 0xFFFFFFFF, "Dose Reference Description", LO, 1, 1, 1) \
    ROW(0x300A0018, 0xFFFFFFFF, "Dose Reference Point Coordinates", DS, 3, 3, 3) \
    ROW(0x300A001A, 0xFFFFFFFF, "Nominal Prior Dose", DS, 1, 1, 1) \
    ROW(0x300A0020, 0xFFFFFFFF, "Dose Reference Type", CS, 1, 1, 1) \
    ROW(0x300A0021, 0xFFFFFFFF, "Constraint Weight", DS, 1, 1, 1) \
    ROW(0x300A0022, 0xFFFFFFFF, "Delivery Warning Dose", DS, 1, 1, 1) \
    ROW(0x300A0023, 0xFFFFFFFF, "Delivery Maximum Dose", DS, 1, 1, 1) \
    ROW(0x300A0025, 0xFFFFFFFF, "Target Minimum Dose", DS, 1, 1, 1) \
    ROW(0x300A0026, 0xFFFFFFFF, "Target Prescription Dose", DS, 1, 1, 1) \
    ROW(0x300A0027, 0xFFFFFFFF, "Target Maximum Dose", DS, 1, 1, 1) \
    ROW(0x300A0028, 0xFFFFFFFF, "Target Underdose Volume Fraction", DS, 1, 1, 1) \
    ROW(0x300A002A, 0xFFFFFFFF, "Organ at Risk Full-volume Dose", DS, 1, 1, 1) \
    ROW(0x300A002B, 0xFFFFFFFF, "Organ at Risk Limit Dose", DS, 1, 1, 1) \
    ROW(0x300A002C, 0xFFFFFFFF, "Organ at Risk Maximum Dose", DS, 1, 1, 1) \
    ROW(0x300A002D, 0xFFFFFFFF, "Organ at Risk Overdose Volume Fraction", DS, 1, 1, 1) \
    ROW(0x300A0040, 0xFFFFFFFF, "Tolerance Table Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0042, 0xFFFFFFFF, "Tolerance Table Number", IS, 1, 1, 1) \
    ROW(0x300A0043, 0xFFFFFFFF, "Tolerance Table Label", SH, 1, 1, 1) \
    ROW(0x300A0044, 0xFFFFFFFF, "Gantry Angle Tolerance", DS, 1, 1, 1) \
    ROW(0x300A0046, 0xFFFFFFFF, "Beam Limiting Device Angle Tolerance", DS, 1, 1, 1) \
    ROW(0x300A0048, 0xFFFFFFFF, "Beam Limiting Device Tolerance Sequence", SQ, 1, 1, 1) \
    ROW(0x300A004A, 0xFFFFFFFF, "Beam Limiting Device Position Tolerance", DS, 1, 1, 1) \
    ROW(0x300A004C, 0xFFFFFFFF, "Patient Support Angle Tolerance", DS, 1, 1, 1) \
    ROW(0x300A004E, 0xFFFFFFFF, "Table Top Eccentric Angle Tolerance", DS, 1, 1, 1) \
    ROW(0x300A0051, 0xFFFFFFFF, "Table Top Vertical Position Tolerance", DS, 1, 1, 1) \
    ROW(0x300A0052, 0xFFFFFFFF, "Table Top Longitudinal Position Tolerance", DS, 1, 1, 1) \
    ROW(0x300A0053, 0xFFFFFFFF, "Table Top Lateral Position Tolerance", DS, 1, 1, 1) \
    ROW(0x300A0055, 0xFFFFFFFF, "RT Plan Relationship", CS, 1, 1, 1) \
    ROW(0x300A0070, 0xFFFFFFFF, "Fraction Group Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0071, 0xFFFFFFFF, "Fraction Group Number", IS, 1, 1, 1) \
    ROW(0x300A0072, 0xFFFFFFFF, "Fraction Group Description", LO, 1, 1, 1) \
    ROW(0x300A0078, 0xFFFFFFFF, "Number of Fractions Planned", IS, 1, 1, 1) \
    ROW(0x300A0079, 0xFFFFFFFF, "Number of Fraction Pattern Digits Per Day", IS, 1, 1, 1) \
    ROW(0x300A007A, 0xFFFFFFFF, "Repeat Fraction Cycle Length", IS, 1, 1, 1) \
    ROW(0x300A007B, 0xFFFFFFFF, "Fraction Pattern", LT, 1, 1, 1) \
    ROW(0x300A0080, 0xFFFFFFFF, "Number of Beams", IS, 1, 1, 1) \
    ROW(0x300A0082, 0xFFFFFFFF, "Beam Dose Specification Point", DS, 3, 3, 3) \
    ROW(0x300A0084, 0xFFFFFFFF, "Beam Dose", DS, 1, 1, 1) \
    ROW(0x300A0086, 0xFFFFFFFF, "Beam Meterset", DS, 1, 1, 1) \
    ROW(0x300A00A0, 0xFFFFFFFF, "Number of Brachy Application Setups", IS, 1, 1, 1) \
    ROW(0x300A00A2, 0xFFFFFFFF, "Brachy Application Setup Dose Specification Point", DS, 3, 3, 3) \
    ROW(0x300A00A4, 0xFFFFFFFF, "Brachy Application Setup Dose", DS, 1, 1, 1) \
    ROW(0x300A00B0, 0xFFFFFFFF, "Beam Sequence", SQ, 1, 1, 1) \
    ROW(0x300A00B2, 0xFFFFFFFF, "Treatment Machine Name", SH, 1, 1, 1) \
    ROW(0x300A00B3, 0xFFFFFFFF, "Primary Dosimeter Unit", CS, 1, 1, 1) \
    ROW(0x300A00B4, 0xFFFFFFFF, "Source-Axis Distance", DS, 1, 1, 1) \
    ROW(0x300A00B6, 0xFFFFFFFF, "Beam Limiting Device Sequence", SQ, 1, 1, 1) \
    ROW(0x300A00B8, 0xFFFFFFFF, "RT Beam Limiting Device Type", CS, 1, 1, 1) \
    ROW(0x300A00BA, 0xFFFFFFFF, "Source to Beam Limiting Device Distance", DS, 1, 1, 1) \
    ROW(0x300A00BC, 0xFFFFFFFF, "Number of Leaf/Jaw Pairs", IS, 1, 1, 1) \
    ROW(0x300A00BE, 0xFFFFFFFF, "Leaf Position Boundaries", DS, 3, n, 1) \
    ROW(0x300A00C0, 0xFFFFFFFF, "Beam Number", IS, 1, 1, 1) \
    ROW(0x300A00C2, 0xFFFFFFFF, "Beam Name", LO, 1, 1, 1) \
    ROW(0x300A00C3, 0xFFFFFFFF, "Beam Description", ST, 1, 1, 1) \
    ROW(0x300A00C4, 0xFFFFFFFF, "Beam Type", CS, 1, 1, 1) \
    ROW(0x300A00C6, 0xFFFFFFFF, "Radiation Type", CS, 1, 1, 1) \
    ROW(0x300A00C7, 0xFFFFFFFF, "High-Dose Technique Type", CS, 1, 1, 1) \
    ROW(0x300A00C8, 0xFFFFFFFF, "Reference Image Number", IS, 1, 1, 1) \
    ROW(0x300A00CA, 0xFFFFFFFF, "Planned Verification Image Sequence", SQ, 1, 1, 1) \
    ROW(0x300A00CC, 0xFFFFFFFF, "Imaging Device-Specific Acquisition Parameters", LO, 1, n, 1) \
    ROW(0x300A00CE, 0xFFFFFFFF, "Treatment Delivery Type", CS, 1, 1, 1) \
    ROW(0x300A00D0, 0xFFFFFFFF, "Number of Wedges", IS, 1, 1, 1) \
    ROW(0x300A00D1, 0xFFFFFFFF, "Wedge Sequence", SQ, 1, 1, 1) \
    ROW(0x300A00D2, 0xFFFFFFFF, "Wedge Number", IS, 1, 1, 1) \
    ROW(0x300A00D3, 0xFFFFFFFF, "Wedge Type", CS, 1, 1, 1) \
    ROW(0x300A00D4, 0xFFFFFFFF, "Wedge ID", SH, 1, 1, 1) \
    ROW(0x300A00D5, 0xFFFFFFFF, "Wedge Angle", IS, 1, 1, 1) \
    ROW(0x300A00D6, 0xFFFFFFFF, "Wedge Factor", DS, 1, 1, 1) \
    ROW(0x300A00D8, 0xFFFFFFFF, "Wedge Orientation", DS, 1, 1, 1) \
    ROW(0x300A00DA, 0xFFFFFFFF, "Source to Wedge Tray Distance", DS, 1, 1, 1) \
    ROW(0x300A00E0, 0xFFFFFFFF, "Number of Compensators", IS, 1, 1, 1) \
    ROW(0x300A00E1, 0xFFFFFFFF, "Material ID", SH, 1, 1, 1) \
    ROW(0x300A00E2, 0xFFFFFFFF, "Total Compensator Tray Factor", DS, 1, 1, 1) \
    ROW(0x300A00E3, 0xFFFFFFFF, "Compensator Sequence", SQ, 1, 1, 1) \
    ROW(0x300A00E4, 0xFFFFFFFF, "Compensator Number", IS, 1, 1, 1) \
    ROW(0x300A00E5, 0xFFFFFFFF, "Compensator ID", SH, 1, 1, 1) \
    ROW(0x300A00E6, 0xFFFFFFFF, "Source to Compensator Tray Distance", DS, 1, 1, 1) \
    ROW(0x300A00E7, 0xFFFFFFFF, "Compensator Rows", IS, 1, 1, 1) \
    ROW(0x300A00E8, 0xFFFFFFFF, "Compensator Columns", IS, 1, 1, 1) \
    ROW(0x300A00E9, 0xFFFFFFFF, "Compensator Pixel Spacing", DS, 2, 2, 2) \
    ROW(0x300A00EA, 0xFFFFFFFF, "Compensator Position", DS, 2, 2, 2) \
    ROW(0x300A00EB, 0xFFFFFFFF, "Compensator Transmission Data", DS, 1, n, 1) \
    ROW(0x300A00EC, 0xFFFFFFFF, "Compensator Thickness Data", DS, 1, n, 1) \
    ROW(0x300A00ED, 0xFFFFFFFF, "Number of Boli", IS, 1, 1, 1) \
    ROW(0x300A00EE, 0xFFFFFFFF, "Compensator Type", CS, 1, 1, 1) \
    ROW(0x300A00F0, 0xFFFFFFFF, "Number of Blocks", IS, 1, 1, 1) \
    ROW(0x300A00F2, 0xFFFFFFFF, "Total Block Tray Factor", DS, 1, 1, 1) \
    ROW(0x300A00F4, 0xFFFFFFFF, "Block Sequence", SQ, 1, 1, 1) \
    ROW(0x300A00F5, 0xFFFFFFFF, "Block Tray ID", SH, 1, 1, 1) \
    ROW(0x300A00F6, 0xFFFFFFFF, "Source to Block Tray Distance", DS, 1, 1, 1) \
    ROW(0x300A00F8, 0xFFFFFFFF, "Block Type", CS, 1, 1, 1) \
    ROW(0x300A00F9, 0xFFFFFFFF, "Accessory Code", LO, 1, 1, 1) \
    ROW(0x300A00FA, 0xFFFFFFFF, "Block Divergence", CS, 1, 1, 1) \
    ROW(0x300A00FB, 0xFFFFFFFF, "Block Mounting Position", CS, 1, 1, 1) \
    ROW(0x300A00FC, 0xFFFFFFFF, "Block Number", IS, 1, 1, 1) \
    ROW(0x300A00FE, 0xFFFFFFFF, "Block Name", LO, 1, 1, 1) \
    ROW(0x300A0100, 0xFFFFFFFF, "Block Thickness", DS, 1, 1, 1) \
    ROW(0x300A0102, 0xFFFFFFFF, "Block Transmission", DS, 1, 1, 1) \
    ROW(0x300A0104, 0xFFFFFFFF, "Block Number of Points", IS, 1, 1, 1) \
    ROW(0x300A0106, 0xFFFFFFFF, "Block Data", DS, 2, n, 2) \
    ROW(0x300A0107, 0xFFFFFFFF, "Applicator Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0108, 0xFFFFFFFF, "Applicator ID", SH, 1, 1, 1) \
    ROW(0x300A0109, 0xFFFFFFFF, "Applicator Type", CS, 1, 1, 1) \
    ROW(0x300A010A, 0xFFFFFFFF, "Applicator Description", LO, 1, 1, 1) \
    ROW(0x300A010C, 0xFFFFFFFF, "Cumulative Dose Reference Coefficient", DS, 1, 1, 1) \
    ROW(0x300A010E, 0xFFFFFFFF, "Final Cumulative Meterset Weight", DS, 1, 1, 1) \
    ROW(0x300A0110, 0xFFFFFFFF, "Number of Control Points", IS, 1, 1, 1) \
    ROW(0x300A0111, 0xFFFFFFFF, "Control Point Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0112, 0xFFFFFFFF, "Control Point Index", IS, 1, 1, 1) \
    ROW(0x300A0114, 0xFFFFFFFF, "Nominal Beam Energy", DS, 1, 1, 1) \
    ROW(0x300A0115, 0xFFFFFFFF, "Dose Rate Set", DS, 1, 1, 1) \
    ROW(0x300A0116, 0xFFFFFFFF, "Wedge Position Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0118, 0xFFFFFFFF, "Wedge Position", CS, 1, 1, 1) \
    ROW(0x300A011A, 0xFFFFFFFF, "Beam Limiting Device Position Sequence", SQ, 1, 1, 1) \
    ROW(0x300A011C, 0xFFFFFFFF, "Leaf/Jaw Positions", DS, 2, n, 2) \
    ROW(0x300A011E, 0xFFFFFFFF, "Gantry Angle", DS, 1, 1, 1) \
    ROW(0x300A011F, 0xFFFFFFFF, "Gantry Rotation Direction", CS, 1, 1, 1) \
    ROW(0x300A0120, 0xFFFFFFFF, "Beam Limiting Device Angle", DS, 1, 1, 1) \
    ROW(0x300A0121, 0xFFFFFFFF, "Beam Limiting Device Rotation Direction", CS, 1, 1, 1) \
    ROW(0x300A0122, 0xFFFFFFFF, "Patient Support Angle", DS, 1, 1, 1) \
    ROW(0x300A0123, 0xFFFFFFFF, "Patient Support Rotation Direction", CS, 1, 1, 1) \
    ROW(0x300A0124, 0xFFFFFFFF, "Table Top Eccentric Axis Distance", DS, 1, 1, 1) \
    ROW(0x300A0125, 0xFFFFFFFF, "Table Top Eccentric Angle", DS, 1, 1, 1) \
    ROW(0x300A0126, 0xFFFFFFFF, "Table Top Eccentric Rotation Direction", CS, 1, 1, 1) \
    ROW(0x300A0128, 0xFFFFFFFF, "Table Top Vertical Position", DS, 1, 1, 1) \
    ROW(0x300A0129, 0xFFFFFFFF, "Table Top Longitudinal Position", DS, 1, 1, 1) \
    ROW(0x300A012A, 0xFFFFFFFF, "Table Top Lateral Position", DS, 1, 1, 1) \
    ROW(0x300A012C, 0xFFFFFFFF, "Isocenter Position", DS, 3, 3, 3) \
    ROW(0x300A012E, 0xFFFFFFFF, "Surface Entry Point", DS, 3, 3, 3) \
    ROW(0x300A0130, 0xFFFFFFFF, "Source to Surface Distance", DS, 1, 1, 1) \
    ROW(0x300A0134, 0xFFFFFFFF, "Cumulative Meterset Weight", DS, 1, 1, 1) \
    ROW(0x300A0180, 0xFFFFFFFF, "Patient Setup Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0182, 0xFFFFFFFF, "Patient Setup Number", IS, 1, 1, 1) \
    ROW(0x300A0184, 0xFFFFFFFF, "Patient Additional Position", LO, 1, 1, 1) \
    ROW(0x300A0190, 0xFFFFFFFF, "Fixation Device Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0192, 0xFFFFFFFF, "Fixation Device Type", CS, 1, 1, 1) \
    ROW(0x300A0194, 0xFFFFFFFF, "Fixation Device Label", SH, 1, 1, 1) \
    ROW(0x300A0196, 0xFFFFFFFF, "Fixation Device Description", ST, 1, 1, 1) \
    ROW(0x300A0198, 0xFFFFFFFF, "Fixation Device Position", SH, 1, 1, 1) \
    ROW(0x300A01A0, 0xFFFFFFFF, "Shielding Device Sequence", SQ, 1, 1, 1) \
    ROW(0x300A01A2, 0xFFFFFFFF, "Shielding Device Type", CS, 1, 1, 1) \
    ROW(0x300A01A4, 0xFFFFFFFF, "Shielding Device Label", SH, 1, 1, 1) \
    ROW(0x300A01A6, 0xFFFFFFFF, "Shielding Device Description", ST, 1, 1, 1) \
    ROW(0x300A01A8, 0xFFFFFFFF, "Shielding Device Position", SH, 1, 1, 1) \
    ROW(0x300A01B0, 0xFFFFFFFF, "Setup Technique", CS, 1, 1, 1) \
    ROW(0x300A01B2, 0xFFFFFFFF, "Setup Technique Description", ST, 1, 1, 1) \
    ROW(0x300A01B4, 0xFFFFFFFF, "Setup Device Sequence", SQ, 1, 1, 1) \
    ROW(0x300A01B6, 0xFFFFFFFF, "Setup Device Type", CS, 1, 1, 1) \
    ROW(0x300A01B8, 0xFFFFFFFF, "Setup Device Label", SH, 1, 1, 1) \
    ROW(0x300A01BA, 0xFFFFFFFF, "Setup Device Description", ST, 1, 1, 1) \
    ROW(0x300A01BC, 0xFFFFFFFF, "Setup Device Parameter", DS, 1, 1, 1) \
    ROW(0x300A01D0, 0xFFFFFFFF, "Setup Reference Description", ST, 1, 1, 1) \
    ROW(0x300A01D2, 0xFFFFFFFF, "Table Top Vertical Setup Displacement", DS, 1, 1, 1) \
    ROW(0x300A01D4, 0xFFFFFFFF, "Table Top Longitudinal Setup Displacement", DS, 1, 1, 1) \
    ROW(0x300A01D6, 0xFFFFFFFF, "Table Top Lateral Setup Displacement", DS, 1, 1, 1) \
    ROW(0x300A0200, 0xFFFFFFFF, "Brachy Treatment Technique", CS, 1, 1, 1) \
    ROW(0x300A0202, 0xFFFFFFFF, "Brachy Treatment Type", CS, 1, 1, 1) \
    ROW(0x300A0206, 0xFFFFFFFF, "Treatment Machine Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0210, 0xFFFFFFFF, "Source Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0212, 0xFFFFFFFF, "Source Number", IS, 1, 1, 1) \
    ROW(0x300A0214, 0xFFFFFFFF, "Source Type", CS, 1, 1, 1) \
    ROW(0x300A0216, 0xFFFFFFFF, "Source Manufacturer", LO, 1, 1, 1) \
    ROW(0x300A0218, 0xFFFFFFFF, "Active Source Diameter", DS, 1, 1, 1) \
    ROW(0x300A021A, 0xFFFFFFFF, "Active Source Length", DS, 1, 1, 1) \
    ROW(0x300A0222, 0xFFFFFFFF, "Source Encapsulation Nominal Thickness", DS, 1, 1, 1) \
    ROW(0x300A0224, 0xFFFFFFFF, "Source Encapsulation Nominal Transmission", DS, 1, 1, 1) \
    ROW(0x300A0226, 0xFFFFFFFF, "Source Isotope Name", LO, 1, 1, 1) \
    ROW(0x300A0228, 0xFFFFFFFF, "Source Isotope Half Life", DS, 1, 1, 1) \
    ROW(0x300A022A, 0xFFFFFFFF, "Reference Air Kerma Rate", DS, 1, 1, 1) \
    ROW(0x300A022C, 0xFFFFFFFF, "Source Strength Reference Date", DA, 1, 1, 1) \
    ROW(0x300A022E, 0xFFFFFFFF, "Source Strength Reference Time", TM, 1, 1, 1) \
    ROW(0x300A0230, 0xFFFFFFFF, "Application Setup Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0232, 0xFFFFFFFF, "Application Setup Type", CS, 1, 1, 1) \
    ROW(0x300A0234, 0xFFFFFFFF, "Application Setup Number", IS, 1, 1, 1) \
    ROW(0x300A0236, 0xFFFFFFFF, "Application Setup Name", LO, 1, 1, 1) \
    ROW(0x300A0238, 0xFFFFFFFF, "Application Setup Manufacturer", LO, 1, 1, 1) \
    ROW(0x300A0240, 0xFFFFFFFF, "Template Number", IS, 1, 1, 1) \
    ROW(0x300A0242, 0xFFFFFFFF, "Template Type", SH, 1, 1, 1) \
    ROW(0x300A0244, 0xFFFFFFFF, "Template Name", LO, 1, 1, 1) \
    ROW(0x300A0250, 0xFFFFFFFF, "Total Reference Air Kerma", DS, 1, 1, 1) \
    ROW(0x300A0260, 0xFFFFFFFF, "Brachy Accessory Device Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0262, 0xFFFFFFFF, "Brachy Accessory Device Number", IS, 1, 1, 1) \
    ROW(0x300A0263, 0xFFFFFFFF, "Brachy Accessory Device ID", SH, 1, 1, 1) \
    ROW(0x300A0264, 0xFFFFFFFF, "Brachy Accessory Device Type", CS, 1, 1, 1) \
    ROW(0x300A0266, 0xFFFFFFFF, "Brachy Accessory Device Name", LO, 1, 1, 1) \
    ROW(0x300A026A, 0xFFFFFFFF, "Brachy Accessory Device Nominal Thickness", DS, 1, 1, 1) \
    ROW(0x300A026C, 0xFFFFFFFF, "Brachy Accessory Device Nominal Transmission", DS, 1, 1, 1) \
    ROW(0x300A0280, 0xFFFFFFFF, "Channel Sequence", SQ, 1, 1, 1) \
    ROW(0x300A0282, 0xFFFFFFFF, "Channel Number", IS, 1, 1, 1) \
    ROW(0x300A0284, 0xFFFFFFFF, "Channel Length", DS, 1, 1, 1) \
    ROW(0x300A0286, 0xFFFFFFFF, "Channel Total Time", DS, 1, 1, 1) \
    ROW(0x300A0288, 0xFFFFFFFF, "Source Movement Type", CS, 1, 1, 1) \
    ROW(0x300A028A, 0xFFFFFFFF, "Number of Pulses", IS, 1, 1, 1) \
    ROW(0x300A028C, 0xFFFFFFFF, "Pulse Repetition Interval", DS, 1, 1, 1) \
    ROW(0x300A0290, 0xFFFFFFFF, "Source Applicator Number", IS, 1, 1, 1) \
    ROW(0x300A0291, 0xFFFFFFFF, "Source Applicator ID", SH, 1, 1, 1) \
    ROW(0x300A0292, 0xFFFFFFFF, "Source Applicator Type", CS, 1, 1, 1) \
    ROW(0x300A0294, 0xFFFFFFFF, "Source Applicator Name", LO, 1, 1, 1) \
    ROW(0x300A0296, 0xFFFFFFFF, "Source Applicator Length", DS, 1, 1, 1) \
    ROW(0x300A0298, 0xFFFFFFFF, "Source Applicator Manufacturer", LO, 1, 1, 1) \
    ROW(0x300A029C, 0xFFFFFFFF, "Source Applicator Wall Nominal Thickness", DS, 1, 1, 1) \
    ROW(0x300A029E, 0xFFFFFFFF, "Source Applicator Wall Nominal Transmission", DS, 1, 1, 1) \
    ROW(0x300A02A0, 0xFFFFFFFF, "Source Applicator Step Size", DS, 1, 1, 1) \
    ROW(0x300A02A2, 0xFFFFFFFF, "Transfer Tube Number", IS, 1, 1, 1) \
    ROW(0x300A02A4, 0xFFFFFFFF, "Transfer Tube Length", DS, 1, 1, 1) \
    ROW(0x300A02B0, 0xFFFFFFFF, "Channel Shield Sequence", SQ, 1, 1, 1) \
    ROW(0x300A02B2, 0xFFFFFFFF, "Channel Shield Number", IS, 1, 1, 1) \
    ROW(0x300A02B3, 0xFFFFFFFF, "Channel Shield ID", SH, 1, 1, 1) \
    ROW(0x300A02B4, 0xFFFFFFFF, "Channel Shield Name", LO, 1, 1, 1) \
    ROW(0x300A02B8, 0xFFFFFFFF, "Channel Shield Nominal Thickness", DS, 1, 1, 1) \
    ROW(0x300A02BA, 0xFFFFFFFF, "Channel Shield Nominal Transmission", DS, 1, 1, 1) \
    ROW(0x300A02C8, 0xFFFFFFFF, "Final Cumulative Time Weight", DS, 1, 1, 1) \
    ROW(0x300A02D0, 0xFFFFFFFF, "Brachy Control Point Sequence", SQ, 1, 1, 1) \
    ROW(0x300A02D2, 0xFFFFFFFF, "Control Point Relative Position", DS, 1, 1, 1) \
    ROW(0x300A02D4, 0xFFFFFFFF, "Control Point 3D Position", DS, 3, 3, 3) \
    ROW(0x300A02D6, 0xFFFFFFFF, "Cumulative Time Weight", DS, 1, 1, 1) \
    ROW(0x300A02E0, 0xFFFFFFFF, "Compensator Divergence", CS, 1, 1, 1) \
    ROW(0x300A02E1, 0xFFFFFFFF, "Compensator Mounting Position", CS, 1, 1, 1) \
    ROW(0x300A02E2, 0xFFFFFFFF, "Source to Compensator Distance", DS, 1, n, 1) \
    ROW(0x300C0002, 0xFFFFFFFF, "Referenced RT Plan Sequence", SQ, 1, 1, 1) \
    ROW(0x300C0004, 0xFFFFFFFF, "Referenced Beam Sequence", SQ, 1, 1, 1) \
    ROW(0x300C0006, 0xFFFFFFFF, "Referenced Beam Number", IS, 1, 1, 1) \
    ROW(0x300C0007, 0xFFFFFFFF, "Referenced Reference Image Number", IS, 1, 1, 1) \
    ROW(0x300C0008, 0xFFFFFFFF, "Start Cumulative Meterset Weight", DS, 1, 1, 1) \
    ROW(0x300C0009, 0xFFFFFFFF, "End Cumulative Meterset Weight", DS, 1, 1, 1) \
    ROW(0x300C000A, 0xFFFFFFFF, "Referenced Brachy Application Setup Sequence", SQ, 1, 1, 1) \
    ROW(0x300C000C, 0xFFFFFFFF, "Referenced Brachy Application Setup Number", IS, 1, 1, 1) \
    ROW(0x300C000E, 0xFFFFFFFF, "Referenced Source Number", IS, 1, 1, 1) \
    ROW(0x300C0020, 0xFFFFFFFF, "Referenced Fraction Group Sequence", SQ, 1, 1, 1) \
    ROW(0x300C0022, 0xFFFFFFFF, "Referenced Fraction Group Number", IS, 1, 1, 1) \
    ROW(0x300C0040, 0xFFFFFFFF, "Referenced Verification Image Sequence", SQ, 1, 1, 1) \
    ROW(0x300C0042, 0xFFFFFFFF, "Referenced Reference Image Sequence", SQ, 1, 1, 1) \
    ROW(0x300C0050, 0xFFFFFFFF, "Referenced Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x300C0051, 0xFFFFFFFF, "Referenced Dose Reference Number", IS, 1, 1, 1) \
    ROW(0x300C0055, 0xFFFFFFFF, "Brachy Referenced Dose Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x300C0060, 0xFFFFFFFF, "Referenced Structure Set Sequence", SQ, 1, 1, 1) \
    ROW(0x300C006A, 0xFFFFFFFF, "Referenced Patient Setup Number", IS, 1, 1, 1) \
    ROW(0x300C0080, 0xFFFFFFFF, "Referenced Dose Sequence", SQ, 1, 1, 1) \
    ROW(0x300C00A0, 0xFFFFFFFF, "Referenced Tolerance Table Number", IS, 1, 1, 1) \
    ROW(0x300C00B0, 0xFFFFFFFF, "Referenced Bolus Sequence", SQ, 1, 1, 1) \
    ROW(0x300C00C0, 0xFFFFFFFF, "Referenced Wedge Number", IS, 1, 1, 1) \
    ROW(0x300C00D0, 0xFFFFFFFF, "Referenced Compensator Number", IS, 1, 1, 1) \
    ROW(0x300C00E0, 0xFFFFFFFF, "Referenced Block Number", IS, 1, 1, 1) \
    ROW(0x300C00F0, 0xFFFFFFFF, "Referenced Control Point Index", IS, 1, 1, 1) \
    ROW(0x300E0002, 0xFFFFFFFF, "Approval Status", CS, 1, 1, 1) \
    ROW(0x300E0004, 0xFFFFFFFF, "Review Date", DA, 1, 1, 1) \
    ROW(0x300E0005, 0xFFFFFFFF, "Review Time", TM, 1, 1, 1) \
    ROW(0x300E0008, 0xFFFFFFFF, "Reviewer Name", PN, 1, 1, 1) \
    ROW(0x40000010, 0xFFFFFFFF, "Arbitrary", LT, 1, 1, 1) \
    ROW(0x40004000, 0xFFFFFFFF, "Text Comments", LT, 1, 1, 1) \
    ROW(0x40080040, 0xFFFFFFFF, "Results ID", SH, 1, 1, 1) \
    ROW(0x40080042, 0xFFFFFFFF, "Results ID Issuer", LO, 1, 1, 1) \
    ROW(0x40080050, 0xFFFFFFFF, "Referenced Interpretation Sequence", SQ, 1, 1, 1) \
    ROW(0x40080100, 0xFFFFFFFF, "Interpretation Recorded Date", DA, 1, 1, 1) \
    ROW(0x40080101, 0xFFFFFFFF, "Interpretation Recorded Time", TM, 1, 1, 1) \
    ROW(0x40080102, 0xFFFFFFFF, "Interpretation Recorder", PN, 1, 1, 1) \
    ROW(0x40080103, 0xFFFFFFFF, "Reference to Recorded Sound", LO, 1, 1, 1) \
    ROW(0x40080108, 0xFFFFFFFF, "Interpretation Transcription Date", DA, 1, 1, 1) \
    ROW(0x40080109, 0xFFFFFFFF, "Interpretation Transcription Time", TM, 1, 1, 1) \
    ROW(0x4008010A, 0xFFFFFFFF, "Interpretation Transcriber", PN, 1, 1, 1) \
    ROW(0x4008010B, 0xFFFFFFFF, "Interpretation Text", ST, 1, 1, 1) \
    ROW(0x4008010C, 0xFFFFFFFF, "Interpretation Author", PN, 1, 1, 1) \
    ROW(0x40080111, 0xFFFFFFFF, "Interpretation Approver Sequence", SQ, 1, 1, 1) \
    ROW(0x40080112, 0xFFFFFFFF, "Interpretation Approval Date", DA, 1, 1, 1) \
    ROW(0x40080113, 0xFFFFFFFF, "Interpretation Approval Time", TM, 1, 1, 1) \
    ROW(0x40080114, 0xFFFFFFFF, "Physician Approving Interpretation", PN, 1, 1, 1) \
    ROW(0x40080115, 0xFFFFFFFF, "Interpretation Diagnosis Description", LT, 1, 1, 1) \
    ROW(0x40080117, 0xFFFFFFFF, "Interpretation Diagnosis Code Sequence", SQ, 1, 1, 1) \
    ROW(0x40080118, 0xFFFFFFFF, "Results Distribution List Sequence", SQ, 1, 1, 1) \
    ROW(0x40080119, 0xFFFFFFFF, "Distribution Name", PN, 1, 1, 1) \
    ROW(0x4008011A, 0xFFFFFFFF, "Distribution Address", LO, 1, 1, 1) \
    ROW(0x40080200, 0xFFFFFFFF, "Interpretation ID", SH, 1, 1, 1) \
    ROW(0x40080202, 0xFFFFFFFF, "Interpretation ID Issuer", LO, 1, 1, 1) \
    ROW(0x40080210, 0xFFFFFFFF, "Interpretation Type ID", CS, 1, 1, 1) \
    ROW(0x40080212, 0xFFFFFFFF, "Interpretation Status ID", CS, 1, 1, 1) \
    ROW(0x40080300, 0xFFFFFFFF, "Impressions", ST, 1, 1, 1) \
    ROW(0x40084000, 0xFFFFFFFF, "Results Comments", ST, 1, 1, 1) \
    ROW(0x4FFE0001, 0xFFFFFFFF, "MAC Parameters Sequence", SQ, 1, 1, 1) \
    ROW(0x52009229, 0xFFFFFFFF, "Shared Functional Groups Sequence", SQ, 1, 1, 1) \
    ROW(0x52009230, 0xFFFFFFFF, "Per-frame Functional Groups Sequence", SQ, 1, 1, 1) \
    ROW(0x54000100, 0xFFFFFFFF, "Waveform Sequence", SQ, 1, 1, 1) \
    ROW(0x54000110, 0xFFFFFFFF, "Channel Minimum Value", OW, 1, 1, 1) \
    ROW(0x54000112, 0xFFFFFFFF, "Channel Maximum Value", OW, 1, 1, 1) \
    ROW(0x54001004, 0xFFFFFFFF, "Waveform Bits Allocated", US, 1, 1, 1) \
    ROW(0x54001006, 0xFFFFFFFF, "Waveform Sample Interpretation", CS, 1, 1, 1) \
    ROW(0x5400100A, 0xFFFFFFFF, "Waveform Padding Value", OW, 1, 1, 1) \
    ROW(0x54001010, 0xFFFFFFFF, "Waveform Data", OW, 1, 1, 1) \
    ROW(0x56000010, 0xFFFFFFFF, "First Order Phase Correction Angle", OF, 1, 1, 1) \
    ROW(0x56000020, 0xFFFFFFFF, "Spectroscopy Data", OF, 1, 1, 1) \
    ROW(0x50000005, 0xFF00FFFF, "Curve Dimensions", US, 1, 1, 1) \
    ROW(0x50000010, 0xFF00FFFF, "Number of Points", US, 1, 1, 1) \
    ROW(0x50000020, 0xFF00FFFF, "Type of Data", CS, 1, 1, 1) \
    ROW(0x50000022, 0xFF00FFFF, "Curve Description", LO, 1, 1, 1) \
    ROW(0x50000030, 0xFF00FFFF, "Axis Units", SH, 1, n, 1) \
    ROW(0x50000040, 0xFF00FFFF, "Axis Labels", SH, 1, n, 1) \
    ROW(0x50000103, 0xFF00FFFF, "Data Value Representation", US, 1, 1, 1) \
    ROW(0x50000104, 0xFF00FFFF, "Minimum Coordinate Value", US, 1, n, 1) \
    ROW(0x50000105, 0xFF00FFFF, "Maximum Coordinate Value", US, 1, n, 1) \
    ROW(0x50000106, 0xFF00FFFF, "Curve Range", SH, 1, n, 1) \
    ROW(0x50000110, 0xFF00FFFF, "Curve Data Descriptor", US, 1, n, 1) \
    ROW(0x50000112, 0xFF00FFFF, "Coordinate Start Value", US, 1, n, 1) \
    ROW(0x50000114, 0xFF00FFFF, "Coordinate Step Value", US, 1, n, 1) \
    ROW(0x50001001, 0xFF00FFFF, "Curve Activation Layer", CS, 1, 1, 1) \
    ROW(0x50002000, 0xFF00FFFF, "Audio Type", US, 1, 1, 1) \
    ROW(0x50002002, 0xFF00FFFF, "Audio Sample Format", US, 1, 1, 1) \
    ROW(0x50002004, 0xFF00FFFF, "Number of Channels", US, 1, 1, 1) \
    ROW(0x50002006, 0xFF00FFFF, "Number of Samples", UL, 1, 1, 1) \
    ROW(0x50002008, 0xFF00FFFF, "Sample Rate", UL, 1, 1, 1) \
    ROW(0x5000200A, 0xFF00FFFF, "Total Time", UL, 1, 1, 1) \
    ROW(0x5000200C, 0xFF00FFFF, "Audio Sample Data", OW, 1, 1, 1) \
    ROW(0x5000200E, 0xFF00FFFF, "Audio Comments", LT, 1, 1, 1) \
    ROW(0x50002500, 0xFF00FFFF, "Curve Label", LO, 1, 1, 1) \
    ROW(0x50002600, 0xFF00FFFF, "Curve Referenced Overlay Sequence", SQ, 1, 1, 1) \
    ROW(0x50002610, 0xFF00FFFF, "Curve Referenced Overlay Group", US, 1, 1, 1) \
    ROW(0x50003000, 0xFF00FFFF, "Curve Data", OW, 1, 1, 1) \
    ROW(0x60000010, 0xFF00FFFF, "Overlay Rows", US, 1, 1, 1) \
    ROW(0x60000011, 0xFF00FFFF, "Overlay Columns", US, 1, 1, 1) \
    ROW(0x60000012, 0xFF00FFFF, "Overlay Planes", US, 1, 1, 1) \
    ROW(0x60000015, 0xFF00FFFF, "Number of Frames in Overlay", IS, 1, 1, 1) \
    ROW(0x60000022, 0xFF00FFFF, "Overlay Description", LO, 1, 1, 1) \
    ROW(0x60000040, 0xFF00FFFF, "Overlay Type", CS, 1, 1, 1) \
    ROW(0x60000045, 0xFF00FFFF, "Overlay Subtype", LO, 1, 1, 1) \
    ROW(0x60000050, 0xFF00FFFF, "Overlay Origin", SS, 2, 2, 2) \
    ROW(0x60000051, 0xFF00FFFF, "Image Frame Origin", US, 1, 1, 1) \
    ROW(0x60000052, 0xFF00FFFF, "Overlay Plane Origin", US, 1, 1, 1) \
    ROW(0x60000060, 0xFF00FFFF, "Overlay Compression Code", CS, 1, 1, 1) \
    ROW(0x60000061, 0xFF00FFFF, "Overlay Compression Originator", SH, 1, 1, 1) \
    ROW(0x60000062, 0xFF00FFFF, "Overlay Compression Label", SH, 1, 1, 1) \
    ROW(0x60000063, 0xFF00FFFF, "Overlay Compression Description", CS, 1, 1, 1) \
    ROW(0x60000066, 0xFF00FFFF, "Overlay Compression Step Pointers", AT, 1, n, 1) \
    ROW(0x60000068, 0xFF00FFFF, "Overlay Repeat Interval", US, 1, 1, 1) \
    ROW(0x60000069, 0xFF00FFFF, "Overlay Bits Grouped", US, 1, 1, 1) \
    ROW(0x60000100, 0xFF00FFFF, "Overlay Bits Allocated", US, 1, 1, 1) \
    ROW(0x60000102, 0xFF00FFFF, "Overlay Bit Position", US, 1, 1, 1) \
    ROW(0x60000110, 0xFF00FFFF, "Overlay Format", CS, 1, 1, 1) \
    ROW(0x60000200, 0xFF00FFFF, "Overlay Location", US, 1, 1, 1) \
    ROW(0x60000800, 0xFF00FFFF, "Overlay Code Label", CS, 1, n, 1) \
    ROW(0x60000802, 0xFF00FFFF, "Overlay Number of Tables", US, 1, 1, 1) \
    ROW(0x60000803, 0xFF00FFFF, "Overlay Code Table Location", AT, 1, n, 1) \
    ROW(0x60000804, 0xFF00FFFF, "Overlay Bits For Code Word", US, 1, 1, 1) \
    ROW(0x60001001, 0xFF00FFFF, "Overlay Activation Layer", CS, 1, 1, 1) \
    ROW(0x60001100, 0xFF00FFFF, "Overlay Descriptor - Gray", US, 1, 1, 1) \
    ROW(0x60001101, 0xFF00FFFF, "Overlay Descriptor - Red", US, 1, 1, 1) \
    ROW(0x60001102, 0xFF00FFFF, "Overlay Descriptor - Green", US, 1, 1, 1) \
    ROW(0x60001103, 0xFF00FFFF, "Overlay Descriptor - Blue", US, 1, 1, 1) \
    ROW(0x60001200, 0xFF00FFFF, "Overlays - Gray", US, 1, n, 1) \
    ROW(0x60001201, 0xFF00FFFF, "Overlays - Red", US, 1, n, 1) \
    ROW(0x60001202, 0xFF00FFFF, "Overlays - Green", US, 1, n, 1) \
    ROW(0x60001203, 0xFF00FFFF, "Overlays - Blue", US, 1, n, 1) \
    ROW(0x60001301, 0xFF00FFFF, "ROI Area", IS, 1, 1, 1) \
    ROW(0x60001302, 0xFF00FFFF, "ROI Mean", DS, 1, 1, 1) \
    ROW(0x60001303, 0xFF00FFFF, "ROI Standard Deviation", DS, 1, 1, 1) \
    ROW(0x60001500, 0xFF00FFFF, "Overlay Label", LO, 1, 1, 1) \
    ROW(0x60003000, 0xFF00FFFF, "Overlay Data", OW, 1, 1, 1) \
    ROW(0x60004000, 0xFF00FFFF, "Overlay Comments", LT, 1, 1, 1) \
    ROW(0x7FE00010, 0xFFFFFFFF, "Pixel Data", OW, 1, 1, 1) \
    ROW(0x7FE00020, 0xFFFFFFFF, "Coefficients SDVN", OW, 1, 1, 1) \
    ROW(0x7FE00030, 0xFFFFFFFF, "Coefficients SDHN", OW, 1, 1, 1) \
    ROW(0x7FE00040, 0xFFFFFFFF, "Coefficients SDDN", OW, 1, 1, 1) \
    ROW(0x7F000010, 0xFF00FFFF, "Variable Pixel Data", OW, 1, 1, 1) \
    ROW(0x7F000011, 0xFF00FFFF, "Variable Next Data Group", US, 1, 1, 1) \
    ROW(0x7F000020, 0xFF00FFFF, "Variable Coefficients SDVN", OW, 1, 1, 1) \
    ROW(0x7F000030, 0xFF00FFFF, "Variable Coefficients SDHN", OW, 1, 1, 1) \
    ROW(0x7F000040, 0xFF00FFFF, "Variable Coefficients SDDN", OW, 1, 1, 1) \
    ROW(0xFFFAFFFA, 0xFFFFFFFF, "Digital Signatures Sequence", OB, 1, 1, 1) \
    ROW(0xFFFCFFFC, 0xFFFFFFFF, "Data Set Trailing Padding", OB, 1, 1, 1) \
    ROW(0xFFFEE000, 0xFFFFFFFF, "Item", OB, 1, 1, 1) \
    ROW(0xFFFEE00D, 0xFFFFFFFF, "Item Delimitation Item", OB, 1, 1, 1) \
    ROW(0xFFFEE0DD, 0xFFFFFFFF, "Sequence Delimitation Item", OB, 1, 1, 1) \
    ROW(0x00090010, 0xFFFFFFFF, "SPI Release 1 - Comments", LO, 1, 1, 1) \
    ROW(0x00090015, 0xFFFFFFFF, "SPI Release 1 - UID", LO, 1, 1, 1) \
    ROW(0x00090040, 0xFFFFFFFF, "SPI Release 1 - Data Object Type", US, 1, 1, 1) \
    ROW(0x00090041, 0xFFFFFFFF, "SPI Release 1 - Data Object Subtype", SH, 1, 1, 1) \
    ROW(0x00110010, 0xFFFFFFFF, "SPI Release 1 - Organ", LO, 1, 1, 1) \
    ROW(0x00110015, 0xFFFFFFFF, "SPI Release 1 - Allergy Indication", LO, 1, 1, 1) \
    ROW(0x00110020, 0xFFFFFFFF, "SPI Release 1 - Pregnancy", LO, 1, 1, 1) \
    ROW(0x00090010, 0xFFFFFFFF, "SIEMENS MED - Recognition Code", LO, 1, 1, 1) \
    ROW(0x00090030, 0xFFFFFFFF, "SIEMENS MED - Byte Offset of Original Header", US, 1, 1, 1) \
    ROW(0x00090031, 0xFFFFFFFF, "SIEMENS MED - Length of Original Header", UL, 1, 1, 1) \
    ROW(0x00090040, 0xFFFFFFFF, "SIEMENS MED - Byte Offset of Pixelmatrix", US, 1, 1, 1) \
    ROW(0x00090041, 0xFFFFFFFF, "SIEMENS MED - Length of Pixelmatrix In Bytes", UL, 1, 1, 1) \
    ROW(0x000900F5, 0xFFFFFFFF, "SIEMENS MED - PDM EFID Placeholder", LO, 1, 1, 1) \
    ROW(0x000900F6, 0xFFFFFFFF, "SIEMENS MED - PDM Data Object Type Extension", LO, 1, 1, 1) \
    ROW(0x00090026, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Last Move Date", DA, 1, 1, 1) \
    ROW(0x00090027, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Last Move Time", TM, 1, 1, 1) \
    ROW(0x00110010, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Registration Date", DA, 1, 1, 1) \
    ROW(0x00110011, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Registration Time", TM, 1, 1, 1) \
    ROW(0x00110023, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Used Patient Weight", DS, 1, 1, 1) \
    ROW(0x00130020, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Patient Name", PN, 1, 1, 1) \
    ROW(0x00130022, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Patient Id", LO, 1, 1, 1) \
    ROW(0x00130030, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Patient Birthdate", DA, 1, 1, 1) \
    ROW(0x00130031, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Patient Weight", DS, 1, 1, 1) \
    ROW(0x00130035, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Patient Sex", LO, 1, 1, 1) \
    ROW(0x00130044, 0xFFFFFFFF, "SIEMENS CM VA0 CMS - Patient Position", LO, 1, 1, 1) \
    ROW(0x00190010, 0xFFFFFFFF, "SIEMENS MR VA0 GEN - Total Measurement Time Nominal", DS, 1, 1, 1) \
    ROW(0x00190011, 0xFFFFFFFF, "SIEMENS MR VA0 GEN - Total Measurement Time Current", DS, 1, 1, 1) \
    ROW(0x00190020, 0xFFFFFFFF, "SIEMENS MR VA0 GEN - Number of Fourier Lines Nominal", IS, 1, 1, 1) \
    ROW(0x00190030, 0xFFFFFFFF, "SIEMENS MR VA0 GEN - Acquisition Columns", IS, 1, 1, 1) \
    ROW(0x00190060, 0xFFFFFFFF, "SIEMENS MR VA0 GEN - Flip Angle", DS, 1, 1, 1) \
    ROW(0x00190012, 0xFFFFFFFF, "SIEMENS MR VA0 COAD - Magnetic Field Strenght", DS, 1, 1, 1) \
    ROW(0x00190020, 0xFFFFFFFF, "SIEMENS MR VA0 COAD - Transmitter Amplitude", DS, 1, 1, 1) \
    ROW(0x00190050, 0xFFFFFFFF, "SIEMENS MR VA0 COAD - Receiver Total Gain", DS, 1, 1, 1) \
    ROW(0x00410010, 0xFFFFFFFF, "PAPYRUS - Owner ID", LO, 1, 1, 1) \
    ROW(0x00411000, 0xFFFFFFFF, "PAPYRUS - Papyrus Comments", LT, 1, 1, 1) \
    ROW(0x00411010, 0xFFFFFFFF, "PAPYRUS - Pointer Sequence", SQ, 1, 1, 1) \
    ROW(0x00411011, 0xFFFFFFFF, "PAPYRUS - Image Pointer", UL, 1, 1, 1) \
    ROW(0x00411012, 0xFFFFFFFF, "PAPYRUS - Pixel Offset", UL, 1, 1, 1) \
    ROW(0x00411013, 0xFFFFFFFF, "PAPYRUS - Image Identifier Sequence", SQ, 1, 1, 1) \
    ROW(0x00411014, 0xFFFFFFFF, "PAPYRUS - External File Reference Sequence", SQ, 1, 1, 1) \
    ROW(0x00411015, 0xFFFFFFFF, "PAPYRUS - Number of Images", US, 1, 1, 1) \
    ROW(0x00411021, 0xFFFFFFFF, "PAPYRUS - Referenced SOP Class UID", UI, 1, 1, 1) \
    ROW(0x00411022, 0xFFFFFFFF, "PAPYRUS - Referenced SOP Instance UID", UI, 1, 1, 1) \
    ROW(0x00411031, 0xFFFFFFFF, "PAPYRUS - Referenced File Name", LT, 1, 1, 1) \
    ROW(0x00411032, 0xFFFFFFFF, "PAPYRUS - Referenced File Path", LT, 1, n, 1) \
    ROW(0x00411041, 0xFFFFFFFF, "PAPYRUS - Referenced Image SOP Class UID", UI, 1, 1, 1) \
    ROW(0x00411042, 0xFFFFFFFF, "PAPYRUS - Referenced Image SOP Instance UID", UI, 1, 1, 1) \
    ROW(0x00411050, 0xFFFFFFFF, "PAPYRUS - Image Sequence", SQ, 1, 1, 1)

namespace {

constexpr std::uint32_t n = DICOM_UNDEFINED;
#define AS_ROW(code, mask, name, vr, low, high, divider) {code, mask, VDicomVRCode(#vr[0], #vr[1]), low, high, divider},
constexpr TagRow kRows[] = {ROWS(AS_ROW)};

#define AS_TEXT(code, mask, name, vr, low, high, divider) name "\0"
constexpr char kTexts[] = ROWS(AS_TEXT);

} // namespace

// The literal's own zero is not part of the texts.
const BuiltInTable<TagRow> kTagTable = {kRows, sizeof kRows / sizeof kRows[0], kTexts, sizeof kTexts - 1};

} // namespace vdicom
