// Made by tools/tables/make_tables.py; change the facts, not this file.
// clang-format off
//
// The built-in UIDs.

#include "BuiltInRows.h"

#pragma GCC diagnostic ignored "-Woverlength-strings"

namespace vdicom {

// UID, kind (DICOMUIDTYPE), name
#define ROWS(ROW) \
    ROW("1.2.840.10008.1.1", 3, "Verification Class") \
    ROW("1.2.840.10008.1.2", 1, "Implicit VR - Little Endian") \
    ROW("1.2.840.10008.1.2.1", 1, "Explicit VR - Little Endian") \
    ROW("1.2.840.10008.1.2.1.99", 1, "Deflated Explicit VR Little Endian") \
    ROW("1.2.840.10008.1.2.2", 1, "Explicit VR - Big Endian") \
    ROW("1.2.840.10008.1.2.4.50", 2, "JPEG Baseline (Process 1)") \
    ROW("1.2.840.10008.1.2.4.51", 2, "JPEG Extended (Process 2 & 4)") \
    ROW("1.2.840.10008.1.2.4.52", 2, "JPEG Extended (Process 3 & 5)") \
    ROW("1.2.840.10008.1.2.4.53", 2, "JPEG Spectral Selection, Non-Hierarchical (Process 6 & 8)") \
    ROW("1.2.840.10008.1.2.4.54", 2, "JPEG Spectral Selection, Non-Hierarchical (Process 7 & 9)") \
    ROW("1.2.840.10008.1.2.4.55", 2, "JPEG Full Progression, Non-Hierarchical (Process 10 & 12)") \
    ROW("1.2.840.10008.1.2.4.56", 2, "JPEG Full Progression, Non-Hierarchical (Process 11 & 13)") \
    ROW("1.2.840.10008.1.2.4.57", 2, "JPEG Lossless, Non-Hierarchical (Process 14)") \
    ROW("1.2.840.10008.1.2.4.58", 2, "JPEG Lossless, Non-Hierarchical (Process 15)") \
    ROW("1.2.840.10008.1.2.4.59", 2, "JPEG Extended, Hierarchical (Process 16 & 18)") \
    ROW("1.2.840.10008.1.2.4.60", 2, "JPEG Extended, Hierarchical (Process 17 & 19)") \
    ROW("1.2.840.10008.1.2.4.61", 2, "JPEG Spectral Selection, Hierarchical (Process 20 & 22)") \
    ROW("1.2.840.10008.1.2.4.62", 2, "JPEG Spectral Selection, Hierarchical (Process 21 & 23)") \
    ROW("1.2.840.10008.1.2.4.63", 2, "JPEG Full Progression, Hierarchical (Process 24 & 26)") \
    ROW("1.2.840.10008.1.2.4.64", 2, "JPEG Full Progression, Hierarchical (Process 25 & 27)") \
    ROW("1.2.840.10008.1.2.4.65", 2, "JPEG Lossless, Hierarchical (Process 28)") \
    ROW("1.2.840.10008.1.2.4.66", 2, "JPEG Lossless, Hierarchical (Process 29)") \
    ROW("1.2.840.10008.1.2.4.70", 2, "JPEG Lossless, Non-Hierarchical, First-Order Prediction (Process 14 [Selection Value 1])") \
    ROW("1.2.840.10008.1.2.4.90", 2, "JPEG 2000 Image Compression (Lossless Only)") \
    ROW("1.2.840.10008.1.2.4.91", 2, "JPEG 2000 Image Compression") \
    ROW("1.2.840.10008.1.2.5", 2, "RLE Lossless") \
    ROW("1.2.840.10008.1.3.10", 3, "Media Storage Directory Storage") \
    ROW("1.2.840.10008.1.9", 3, "Basic Study Content Notification SOP Class") \
    ROW("1.2.840.10008.1.20.1", 3, "Storage Commitment Push Model SOP Class") \
    ROW("1.2.840.10008.1.20.1.1", 5, "Storage Commitment Push Model Instance") \
    ROW("1.2.840.10008.1.20.2", 3, "Storage Commitment Pull Model SOP Class") \
    ROW("1.2.840.10008.1.20.2.1", 5, "Storage Commitment Pull Model Instance(Retired)") \
    ROW("1.2.840.10008.2.16.4", 0, "DICOM Controlled Terminology") \
    ROW("1.2.840.10008.3.1.1.1", 6, "Application Context Name") \
    ROW("1.2.840.10008.3.1.2.1.1", 3, "Detached Patient Management SOP Class") \
    ROW("1.2.840.10008.3.1.2.1.4", 4, "Detached Patient Management Meta SOP Class") \
    ROW("1.2.840.10008.3.1.2.2.1", 3, "Detached Visit Management SOP Class") \
    ROW("1.2.840.10008.3.1.2.3.1", 3, "Detached Study Management SOP Class") \
    ROW("1.2.840.10008.3.1.2.3.2", 3, "Study Component Management SOP Class") \
    ROW("1.2.840.10008.3.1.2.3.3", 3, "Modality Performed Procedure Step SOP Class") \
    ROW("1.2.840.10008.3.1.2.3.4", 3, "Modality Performed Procedure Step Retrieve SOP Class") \
    ROW("1.2.840.10008.3.1.2.3.5", 3, "Modality Performed Procedure Step Notification SOP Class") \
    ROW("1.2.840.10008.3.1.2.5.1", 3, "Detached Results Management SOP Class") \
    ROW("1.2.840.10008.3.1.2.5.4", 4, "Detached Results Management Meta SOP Class") \
    ROW("1.2.840.10008.3.1.2.5.5", 4, "Detached Study Management Meta SOP Class") \
    ROW("1.2.840.10008.3.1.2.6.1", 3, "Detached Interpretation Management SOP Class") \
    ROW("1.2.840.10008.5.1.1.1", 3, "Basic Film Session SOP Class") \
    ROW("1.2.840.10008.5.1.1.2", 3, "Basic Film Box SOP Class") \
    ROW("1.2.840.10008.5.1.1.4", 3, "Basic Grayscale Image Box SOP Class") \
    ROW("1.2.840.10008.5.1.1.4.1", 3, "Basic Color Image Box SOP Class") \
    ROW("1.2.840.10008.5.1.1.4.2", 3, "Referenced Image Box SOP Class") \
    ROW("1.2.840.10008.5.1.1.9", 4, "Basic Grayscale Print Management Meta SOP Class") \
    ROW("1.2.840.10008.5.1.1.9.1", 4, "Referenced Grayscale Print Management Meta SOP Class") \
    ROW("1.2.840.10008.5.1.1.14", 3, "Print Job SOP Class") \
    ROW("1.2.840.10008.5.1.1.15", 3, "Basic Annotation Box SOP Class") \
    ROW("1.2.840.10008.5.1.1.16", 3, "Printer SOP Class") \
    ROW("1.2.840.10008.5.1.1.16.376", 3, "Printer Configuration Retrieval SOP Class") \
    ROW("1.2.840.10008.5.1.1.17", 5, "Printer Instance") \
    ROW("1.2.840.10008.5.1.1.17.376", 5, "Printer Configuration Retrieval Instance") \
    ROW("1.2.840.10008.5.1.1.18", 4, "Basic Color Print Management Meta SOP Class") \
    ROW("1.2.840.10008.5.1.1.18.1", 4, "Referenced Color Print Management Meta SOP Class") \
    ROW("1.2.840.10008.5.1.1.22", 3, "VOI LUT Box SOP Class") \
    ROW("1.2.840.10008.5.1.1.23", 3, "Presentation LUT SOP Class") \
    ROW("1.2.840.10008.5.1.1.24", 3, "Image Overlay Box SOP Class") \
    ROW("1.2.840.10008.5.1.1.24.1", 3, "Basic Print Image Overlay Box SOP Class") \
    ROW("1.2.840.10008.5.1.1.25", 5, "Print Queue Management Instance") \
    ROW("1.2.840.10008.5.1.1.26", 3, "Print Queue Management SOP Class") \
    ROW("1.2.840.10008.5.1.1.27", 3, "Stored Print Storage SOP Class") \
    ROW("1.2.840.10008.5.1.1.29", 3, "Hardcopy Grayscale Image Storage SOP Class") \
    ROW("1.2.840.10008.5.1.1.30", 3, "Hardcopy Color Image Storage SOP Class") \
    ROW("1.2.840.10008.5.1.1.31", 3, "Pull Print Request SOP Class") \
    ROW("1.2.840.10008.5.1.1.32", 4, "Pull Stored Print Management Meta Class") \
    ROW("1.2.840.10008.5.1.4.1.1.1", 3, "Computed Radiography Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.1.1", 3, "Digital X-Ray Image Storage - For Presentation") \
    ROW("1.2.840.10008.5.1.4.1.1.1.1.1", 3, "Digital X-Ray Image Storage - For Processing") \
    ROW("1.2.840.10008.5.1.4.1.1.1.2", 3, "Digital Mammography X-Ray Image Storage - For Presentation") \
    ROW("1.2.840.10008.5.1.4.1.1.1.2.1", 3, "Digital Mammography X-Ray Image Storage - For Processing") \
    ROW("1.2.840.10008.5.1.4.1.1.1.3", 3, "Digital Intra-oral X-Ray Image Storage - For Presentation") \
    ROW("1.2.840.10008.5.1.4.1.1.1.3.1", 3, "Digital Intra-oral X-Ray Image Storage - For Processing") \
    ROW("1.2.840.10008.5.1.4.1.1.2", 3, "CT Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.3", 3, "Ultrasound Multi-frame Image Storage (Retired)") \
    ROW("1.2.840.10008.5.1.4.1.1.3.1", 3, "Ultrasound Multi-frame Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.4", 3, "MR Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.5", 3, "Nuclear Medicine Image Storage (Retired)") \
    ROW("1.2.840.10008.5.1.4.1.1.6", 3, "Ultrasound Image Storage (Retired)") \
    ROW("1.2.840.10008.5.1.4.1.1.6.1", 3, "Ultrasound Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.7", 3, "Secondary Capture Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.8", 3, "Standalone Overlay Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.9", 3, "Standalone Curve Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.9.1.1", 0, "12-lead ECG Waveform Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.9.1.2", 0, "General ECG Waveform Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.9.1.3", 3, "Ambulatory ECG Waveform Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.9.2.1", 3, "Hemodynamic Waveform Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.9.3.1", 3, "Cardiac Electrophysiology Waveform Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.9.4.1", 3, "Basic Voice Audio Waveform Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.10", 3, "Standalone Modality LUT Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.11", 3, "Standalone VOI LUT Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.11.1", 3, "Grayscale Softcopy Presentation State Storage SOP Class") \
    ROW("1.2.840.10008.5.1.4.1.1.12.1", 3, "X-Ray Angiographic Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.12.2", 3, "X-Ray Radiofluoroscopic Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.12.3", 3, "X-Ray Angiographic Bi-Plane Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.20", 3, "Nuclear Medicine Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.88.11", 3, "Basic Text SR") \
    ROW("1.2.840.10008.5.1.4.1.1.88.22", 3, "Enhanced SR") \
    ROW("1.2.840.10008.5.1.4.1.1.88.33", 3, "Comprehensive SR") \
    ROW("1.2.840.10008.5.1.4.1.1.88.50", 3, "Mammography CAD SR") \
    ROW("1.2.840.10008.5.1.4.1.1.88.59", 3, "Key Object Selection Document") \
    ROW("1.2.840.10008.5.1.4.1.1.128", 3, "Positron Emission Tomography Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.129", 3, "Standalone PET Curve Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.481.1", 3, "RT Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.481.2", 3, "RT Dose Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.481.3", 3, "RT Structure Set Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.481.4", 3, "RT Beams Treatment Record Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.481.5", 3, "RT Plan Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.481.6", 3, "RT Brachy Treatment Record Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.481.7", 3, "RT Treatment Summary Record Storage") \
    ROW("1.2.840.10008.5.1.4.1.2.1.1", 3, "Patient Root Query/Retrieve Information Model - FIND") \
    ROW("1.2.840.10008.5.1.4.1.2.1.2", 3, "Patient Root Query/Retrieve Information Model - MOVE") \
    ROW("1.2.840.10008.5.1.4.1.2.1.3", 3, "Patient Root Query/Retrieve Information Model - GET") \
    ROW("1.2.840.10008.5.1.4.1.2.2.1", 3, "Study Root Query/Retrieve Information Model - FIND") \
    ROW("1.2.840.10008.5.1.4.1.2.2.2", 3, "Study Root Query/Retrieve Information Model - MOVE") \
    ROW("1.2.840.10008.5.1.4.1.2.2.3", 3, "Study Root Query/Retrieve Information Model - GET") \
    ROW("1.2.840.10008.5.1.4.1.2.3.1", 3, "Patient/Study Only Query/Retrieve Information Model - FIND") \
    ROW("1.2.840.10008.5.1.4.1.2.3.2", 3, "Patient/Study Only Query/Retrieve Information Model - MOVE") \
    ROW("1.2.840.10008.5.1.4.1.2.3.3", 3, "Patient/Study Only Query/Retrieve Information Model - GET") \
    ROW("1.2.840.10008.5.1.4.31", 3, "Modality Worklist Information Model - FIND") \
    ROW("1.2.840.10008.5.1.4.32.1", 3, "General Purpose Worklist Information Model - FIND") \
    ROW("1.2.840.10008.5.1.4.32.2", 3, "General Purpose Scheduled Procedure Step SOP Class") \
    ROW("1.2.840.10008.5.1.4.32.3", 3, "General Purpose Performed Procedure Step SOP Class") \
    ROW("1.2.840.10008.5.1.4.32", 4, "General Purpose Worklist Management Meta SOP Class") \
    ROW("1.2.840.10008.5.1.4.1.1.77.1.1", 3, "VL Endoscopic Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.77.1.2", 3, "VL Microscopic Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.77.1.3", 3, "VL Slide-Coordinates Microscopic Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.77.1.4", 3, "VL Photographic Image Storage") \
    ROW("1.2.840.10008.1.20", 0, "Papyrus 3 Implicit VR Little Endian") \
    ROW("1.2.840.10008.1.2.4.80", 2, "JPEG-LS Lossless Image Compression") \
    ROW("1.2.840.10008.1.2.4.81", 2, "JPEG-LS Lossy (Near-Lossless) Image Compression") \
    ROW("1.2.840.10008.5.1.4.1.1.9.1", 0, "Waveform Storage") \
    ROW("1.2.840.113619.4.2", 0, "GE Private Dicom Magnetic Resonance Image Information Object") \
    ROW("1.2.840.113619.4.3", 0, "GE Private Dicom Computed Tomography Image Information Object") \
    ROW("1.2.840.113619.4.4", 0, "GE Private Dicom Display Imagermation Info Object") \
    ROW("1.2.840.113619.4.10", 0, "GE Private ARM Migration") \
    ROW("1.2.840.113619.7.2", 0, "GE Private ARM Migration Instance") \
    ROW("1.2.840.10008.5.1.4.1.1.7.1", 3, "Multi-frame Single Bit Secondary Capture Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.7.2", 3, "Multi-frame Grayscale Byte Secondary Capture Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.7.3", 3, "Multi-frame Grayscale Word Secondary Capture Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.7.4", 3, "Multi-frame True Color Secondary Capture Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.88.65", 3, "Chest CAD SR") \
    ROW("1.2.840.10008.5.1.4.1.1.4.1", 3, "Enhanced MR Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.4.2", 3, "MR Spectroscopy Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.66", 3, "Raw Data Storage") \
    ROW("1.2.840.10008.5.1.1.33", 3, "Media Creation Management SOP Class") \
    ROW("1.2.840.10008.5.1.4.1.1.88.40", 3, "Procedure Log Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.2.1", 3, "Enhanced CT Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.66.1", 3, "Spatial Registration Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.66.2", 3, "Spatial Fiducials Storage") \
    ROW("1.2.840.10008.1.2.4.100", 2, "MPEG2 Main Profile @ Main Level") \
    ROW("1.2.840.10008.5.1.4.1.1.77.1.1.1", 3, "Video Endoscopic Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.77.1.2.1", 3, "Video Microscopic Image Storage") \
    ROW("1.2.840.10008.5.1.4.1.1.77.1.4.1", 3, "Video Photographic Image Storage")

namespace {

#define AS_ROW(uid, kind, name) {kind},
constexpr UIDRow kRows[] = {ROWS(AS_ROW)};

#define AS_TEXT(uid, kind, name) uid "\0" name "\0"
constexpr char kTexts[] = ROWS(AS_TEXT);

} // namespace

// The literal's own zero is not part of the texts.
const BuiltInTable<UIDRow> kUIDTable = {kRows, sizeof kRows / sizeof kRows[0], kTexts, sizeof kTexts - 1};

} // namespace vdicom
