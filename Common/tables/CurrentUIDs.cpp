// Made by tools/tables/make_tables.py; change the facts, not this file.
// clang-format off
//
// The UIDs of today's edition of the standard (PS3.6 A).

#include "CurrentRows.h"

#pragma GCC diagnostic ignored "-Woverlength-strings"

namespace vdicom {

const CurrentUIDRow kCurrentUIDRows[] = {
    {0,0,0},
    {64,1,0},
    {147,1,0},
    {216,1,0},
    {338,1,0},
    {427,1,1},
    {490,1,0},
    {556,1,0},
    {629,1,1},
    {699,1,1},
    {821,1,1},
    {943,1,1},
    {1065,1,1},
    {1187,1,0},
    {1268,1,1},
    {1366,1,1},
    {1466,1,1},
    {1566,1,1},
    {1685,1,1},
    {1804,1,1},
    {1919,1,1},
    {2034,1,1},
    {2125,1,1},
    {2216,1,0},
    {2344,1,0},
    {2417,1,0},
    {2507,1,0},
    {2591,1,0},
    {2651,1,0},
    {2760,1,0},
    {2845,1,0},
    {2899,1,0},
    {2968,1,0},
    {3034,1,0},
    {3116,1,0},
    {3182,1,0},
    {3264,1,0},
    {3340,1,0},
    {3432,1,0},
    {3524,1,0},
    {3632,1,0},
    {3723,1,0},
    {3830,1,0},
    {3921,1,0},
    {4028,1,0},
    {4117,1,0},
    {4222,1,0},
    {4291,1,0},
    {4365,1,0},
    {4421,1,0},
    {4496,1,0},
    {4535,1,0},
    {4633,1,0},
    {4753,1,0},
    {4827,1,0},
    {4893,1,0},
    {4974,1,0},
    {5019,1,1},
    {5094,1,1},
    {5141,1,0},
    {5266,1,0},
    {5389,1,0},
    {5475,1,0},
    {5560,0,0},
    {5642,2,0},
    {5737,2,0},
    {5799,2,0},
    {5881,2,0},
    {5957,2,0},
    {6025,2,0},
    {6093,2,0},
    {6157,2,0},
    {6225,0,1},
    {6316,1,1},
    {6402,0,0},
    {6490,2,0},
    {6591,0,1},
    {6679,2,1},
    {6780,0,0},
    {6857,2,0},
    {6947,0,0},
    {7040,2,0},
    {7146,3,0},
    {7222,4,0},
    {7290,4,0},
    {7343,4,0},
    {7387,4,0},
    {7494,4,0},
    {7549,4,0},
    {7603,4,0},
    {7640,4,0},
    {7726,4,0},
    {7855,4,0},
    {7925,4,0},
    {7969,4,0},
    {8013,4,0},
    {8046,4,0},
    {8125,4,0},
    {8185,5,0},
    {8287,0,1},
    {8375,6,1},
    {8487,0,1},
    {8571,0,1},
    {8655,0,1},
    {8741,0,0},
    {8840,0,0},
    {8956,0,0},
    {9080,0,1},
    {9168,6,1},
    {9265,6,1},
    {9358,0,1},
    {9460,7,0},
    {9522,0,0},
    {9590,0,0},
    {9650,0,0},
    {9731,0,0},
    {9806,0,1},
    {9880,6,0},
    {9984,6,1},
    {10100,0,0},
    {10152,0,0},
    {10225,0,0},
    {10274,0,0},
    {10373,2,0},
    {10433,2,0},
    {10543,6,0},
    {10640,6,1},
    {10749,0,0},
    {10804,0,0},
    {10870,0,1},
    {10937,0,1},
    {11028,2,1},
    {11095,0,1},
    {11172,0,1},
    {11245,0,1},
    {11341,0,1},
    {11429,0,1},
    {11498,6,1},
    {11595,0,0},
    {11682,0,0},
    {11744,2,0},
    {11819,0,0},
    {11912,0,0},
    {12026,0,0},
    {12138,0,0},
    {12275,0,0},
    {12410,0,0},
    {12544,0,0},
    {12676,0,0},
    {12734,0,0},
    {12811,0,0},
    {12920,0,1},
    {13023,0,0},
    {13121,0,0},
    {13179,0,0},
    {13256,0,0},
    {13330,0,0},
    {13418,0,0},
    {13527,0,1},
    {13619,0,1},
    {13700,0,0},
    {13776,0,0},
    {13855,0,0},
    {13937,0,0},
    {14024,0,0},
    {14155,0,0},
    {14294,0,0},
    {14433,0,0},
    {14564,0,1},
    {14642,0,1},
    {14716,0,1},
    {14790,0,0},
    {14878,0,0},
    {14963,0,0},
    {15054,0,0},
    {15151,0,0},
    {15237,0,0},
    {15350,0,0},
    {15446,0,0},
    {15535,0,0},
    {15626,0,0},
    {15712,0,0},
    {15824,0,0},
    {15954,0,0},
    {16046,0,0},
    {16142,0,0},
    {16257,0,0},
    {16346,0,1},
    {16434,0,1},
    {16512,0,0},
    {16629,0,0},
    {16738,0,0},
    {16860,0,0},
    {16975,0,0},
    {17104,0,0},
    {17245,0,0},
    {17390,0,0},
    {17505,0,0},
    {17639,0,0},
    {17793,0,0},
    {17945,0,0},
    {18085,0,0},
    {18176,0,0},
    {18256,0,0},
    {18357,0,0},
    {18439,0,1},
    {18546,0,1},
    {18578,0,0},
    {18676,0,0},
    {18774,0,0},
    {18872,0,0},
    {19008,0,0},
    {19140,0,0},
    {19312,0,0},
    {19480,0,0},
    {19566,0,0},
    {19637,0,1},
    {19666,0,0},
    {19725,0,0},
    {19810,0,0},
    {19889,0,0},
    {19995,0,0},
    {20065,0,0},
    {20150,0,0},
    {20235,0,0},
    {20323,0,0},
    {20413,0,0},
    {20502,0,0},
    {20580,0,0},
    {20671,0,1},
    {20745,0,1},
    {20841,0,0},
    {20925,0,0},
    {21017,0,0},
    {21103,0,0},
    {21197,0,0},
    {21317,0,0},
    {21405,0,0},
    {21501,0,0},
    {21615,0,0},
    {21731,0,0},
    {21830,0,0},
    {21932,0,0},
    {22104,0,0},
    {22256,0,0},
    {22406,0,0},
    {22573,0,0},
    {22679,0,0},
    {22783,0,0},
    {22879,0,0},
    {23005,0,0},
    {23096,0,0},
    {23195,0,0},
    {23288,0,0},
    {23400,0,0},
    {23496,0,0},
    {23598,0,0},
    {23700,0,0},
    {23802,0,0},
    {23923,0,0},
    {24070,0,0},
    {24162,0,0},
    {24250,0,1},
    {24322,0,1},
    {24396,0,1},
    {24472,0,1},
    {24562,0,0},
    {24633,0,0},
    {24701,0,0},
    {24779,0,0},
    {24862,0,0},
    {24934,0,0},
    {25006,0,0},
    {25087,0,0},
    {25189,0,0},
    {25258,0,0},
    {25347,0,0},
    {25465,0,0},
    {25534,0,0},
    {25619,0,0},
    {25708,0,0},
    {25800,0,0},
    {25894,0,0},
    {26015,0,0},
    {26140,0,0},
    {26246,0,0},
    {26335,0,0},
    {26431,0,0},
    {26542,0,0},
    {26620,0,0},
    {26698,0,0},
    {26776,0,0},
    {26854,0,0},
    {26932,0,0},
    {27042,0,0},
    {27155,0,1},
    {27238,0,0},
    {27317,0,0},
    {27408,0,0},
    {27510,0,0},
    {27616,0,0},
    {27696,0,0},
    {27806,0,0},
    {27916,0,0},
    {28024,0,0},
    {28126,0,0},
    {28232,0,0},
    {28297,0,0},
    {28358,0,0},
    {28419,0,0},
    {28478,0,0},
    {28545,0,0},
    {28608,2,0},
    {28698,0,0},
    {28760,0,0},
    {28820,0,0},
    {28897,0,0},
    {28991,0,0},
    {29051,0,0},
    {29147,0,0},
    {29245,0,0},
    {29312,0,0},
    {29413,0,0},
    {29497,0,0},
    {29585,0,0},
    {29663,0,0},
    {29769,0,0},
    {29866,0,0},
    {29954,0,0},
    {30045,0,0},
    {30144,0,0},
    {30254,0,0},
    {30373,0,0},
    {30467,0,0},
    {30585,0,0},
    {30679,0,0},
    {30759,0,0},
    {30860,0,0},
    {30990,0,0},
    {31063,0,0},
    {31192,0,0},
    {31317,0,0},
    {31419,0,0},
    {31488,0,0},
    {31557,0,0},
    {31659,0,0},
    {31740,0,0},
    {31843,0,0},
    {31925,0,0},
    {32029,0,0},
    {32155,0,0},
    {32281,0,0},
    {32405,0,0},
    {32527,0,0},
    {32649,0,0},
    {32769,0,1},
    {32906,0,1},
    {33043,0,1},
    {33178,0,0},
    {33280,0,0},
    {33380,0,0},
    {33504,0,0},
    {33626,0,0},
    {33748,0,0},
    {33868,0,0},
    {33971,6,1},
    {34082,0,1},
    {34200,0,1},
    {34313,0,1},
    {34426,0,0},
    {34527,0,1},
    {34637,0,1},
    {34746,0,1},
    {34837,7,1},
    {34957,0,1},
    {35062,0,1},
    {35169,0,1},
    {35274,0,1},
    {35381,2,0},
    {35473,2,0},
    {35584,7,0},
    {35691,0,0},
    {35783,0,0},
    {35877,0,0},
    {35969,0,0},
    {36063,0,0},
    {36157,0,0},
    {36254,0,0},
    {36350,0,0},
    {36428,0,0},
    {36562,0,0},
    {36669,0,0},
    {36789,0,0},
    {36896,0,0},
    {36969,0,0},
    {37072,0,0},
    {37175,0,0},
    {37276,0,0},
    {37343,0,0},
    {37468,0,0},
    {37593,0,0},
    {37716,0,0},
    {37807,0,0},
    {37888,0,0},
    {37976,0,0},
    {38094,0,0},
    {38212,0,0},
    {38328,0,0},
    {38418,0,0},
    {38538,0,0},
    {38658,0,0},
    {38776,0,0},
    {38860,0,0},
    {38974,0,0},
    {39088,0,0},
    {39200,8,0},
    {39282,8,0},
    {39376,9,0},
    {39472,0,0},
    {39580,0,0},
    {39692,0,0},
    {39785,0,0},
    {39905,10,0},
    {39969,10,0},
    {40026,10,0},
    {40085,10,0},
    {40162,10,0},
    {40227,10,0},
    {40282,10,0},
    {40331,10,0},
    {40418,10,0},
    {40489,10,0},
    {40565,10,0},
    {40639,10,0},
    {40691,10,0},
    {40735,10,0},
    {40787,10,0},
    {40847,10,0},
    {40911,10,0},
    {40981,10,0},
    {41061,10,0},
    {41141,10,0},
    {41205,10,0},
    {41309,10,0},
    {41401,10,0},
    {41455,10,0},
    {41513,10,0},
    {41585,10,0},
    {41651,10,0},
    {41723,10,0},
    {41809,10,0},
    {41879,10,0},
    {41961,10,0},
    {42039,10,0},
    {42108,10,0},
    {42165,10,0},
    {42252,10,0},
    {42299,10,0},
    {42352,10,0},
    {42421,10,0},
    {42482,10,0},
    {42553,11,0},
    {42640,12,0},
    {42753,12,0},
    {42809,12,0},
    {42865,12,0},
    {42921,12,0},
    {42979,12,0},
    {43042,12,0},
    {43100,12,0},
    {43164,12,0},
    {43226,12,0},
    {43287,12,0},
    {43350,12,0},
    {43409,12,0},
    {43480,12,0},
    {43549,12,0},
    {43618,12,0},
    {43687,12,0},
    {43756,12,0},
    {43833,12,0},
    {43896,12,0},
    {43982,12,0},
    {44087,12,0},
    {44202,12,0},
    {44314,12,0},
    {44367,12,0},
    {44424,12,0},
    {44486,12,0},
    {44552,12,0},
};

const std::size_t kCurrentUIDCount = 490;

const std::uint32_t kCurrentUIDTypes[] = {
    54,
    131,
    5713,
    7192,
    7276,
    8262,
    8472,
    9508,
    39256,
    39455,
    39960,
    42605,
    42723,
};

static constexpr std::uint16_t kCurrentUIDSlotsNumbers[] = {
    0,0,0,282,0,0,120,191,203,0,277,0,0,0,0,0,138,293,0,0,
    75,20,0,186,0,218,0,129,154,84,246,315,417,438,451,234,456,9,233,480,
    67,224,0,0,0,0,414,333,127,0,0,0,0,0,0,0,200,148,361,385,
    97,427,0,119,324,0,212,0,369,410,471,0,21,307,185,346,0,0,398,444,
    260,0,441,0,0,0,255,0,12,0,0,0,0,0,0,0,388,415,81,390,
    0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,28,0,296,0,355,
    0,341,109,0,58,472,43,0,0,0,362,0,299,0,0,0,105,49,0,0,
    359,0,279,140,0,190,0,371,0,0,0,332,0,0,38,0,290,0,0,77,
    0,0,0,0,0,0,164,0,85,270,316,433,455,0,236,0,0,0,44,66,
    219,0,0,306,60,365,334,106,0,0,0,0,0,267,0,0,0,386,378,96,
    424,0,238,323,0,209,214,409,0,470,0,22,308,184,347,82,0,0,445,0,
    0,440,458,0,0,256,0,11,202,0,0,0,0,198,0,216,389,0,0,0,
    0,0,352,0,0,0,0,288,0,0,91,0,0,0,27,0,0,245,453,0,
    340,110,465,59,265,41,473,0,0,446,0,0,0,0,0,0,50,0,0,360,
    0,280,0,0,0,0,372,0,0,0,331,0,0,0,0,291,0,0,0,0,
    125,98,0,0,0,160,0,0,271,432,0,0,0,237,0,64,39,0,65,0,
    0,0,0,0,188,335,107,0,0,0,0,0,285,485,0,196,0,425,0,0,
    46,3,172,326,210,0,367,0,0,0,23,309,183,348,0,80,142,400,0,0,
    457,0,0,0,257,0,14,52,151,72,204,0,197,0,0,0,0,0,229,0,
    161,351,0,0,407,0,0,0,376,90,430,0,231,30,135,0,244,321,353,452,
    345,464,264,349,261,394,226,474,447,40,301,487,0,0,0,51,0,0,153,0,
    36,0,0,0,0,373,0,489,0,0,0,0,0,0,112,0,0,0,0,0,
    0,207,0,0,133,170,0,314,435,0,467,0,0,0,0,37,0,221,0,0,
    0,0,62,189,336,0,0,0,0,0,0,286,484,0,126,195,374,0,0,0,
    6,34,177,74,325,411,100,268,0,310,0,0,0,0,0,399,0,0,269,319,
    460,287,0,258,178,13,53,158,71,206,0,0,0,0,0,275,337,99,4,228,
    102,0,0,0,83,145,180,377,93,431,0,230,29,328,262,243,322,358,0,344,
    0,395,182,117,462,475,0,448,235,300,0,0,0,0,251,482,0,157,0,0,
    0,0,0,0,0,0,490,0,0,0,272,0,0,289,405,0,0,0,0,0,
    0,0,0,134,24,88,169,380,434,466,0,247,266,476,35,0,220,0,0,0,
    303,61,0,165,419,0,0,0,0,0,283,483,0,124,194,259,273,379,423,174,
    0,0,208,137,213,0,0,144,17,311,0,0,0,0,152,486,0,320,437,416,
    459,0,0,179,8,48,54,70,111,223,0,25,73,131,338,0,0,5,163,0,
    0,313,0,201,147,382,428,92,78,0,327,32,113,0,242,357,0,0,343,0,
    396,0,0,0,0,401,449,0,0,0,0,0,0,249,252,0,156,0,0,0,
    0,0,0,176,0,0,0,295,146,0,0,0,0,406,0,0,0,0,0,141,
    0,0,130,0,89,241,403,0,469,108,248,298,16,33,342,42,477,0,0,302,
    1,393,166,217,420,0,0,0,0,284,0,0,122,193,381,0,0,0,173,118,
    187,0,136,0,0,0,0,18,312,0,0,0,0,149,0,86,317,436,454,0,
    0,0,0,7,55,0,69,222,0,0,26,366,412,276,0,0,0,162,0,0,
    0,0,0,0,383,375,95,429,0,57,31,114,330,0,356,101,408,0,0,397,
    0,0,0,0,0,442,0,0,461,76,0,215,250,253,0,155,0,0,0,0,
    0,274,0,0,79,488,0,0,0,0,0,0,0,0,0,0,0,0,0,0,
    0,132,0,402,240,0,0,468,0,0,297,15,47,478,0,0,364,0,305,2,
    392,167,103,421,0,0,0,0,281,0,0,121,192,387,0,278,0,0,0,0,
    205,139,292,0,0,0,19,0,0,0,227,0,128,159,87,318,439,450,0,0,
    232,0,10,56,0,68,225,0,0,0,370,413,168,0,0,0,0,0,0,0,
    0,199,143,384,426,94,0,0,175,329,0,63,211,368,0,0,0,0,0,181,
    116,0,0,0,443,0,0,0,0,0,0,254,481,0,0,150,123,0,0,0,
    0,0,0,0,0,0,0,418,350,0,0,404,0,0,0,0,0,0,171,0,
    115,0,294,239,354,0,463,339,0,263,479,45,0,0,0,363,0,304,391,0,
    0,104,422,0,
};
const SlotTable kCurrentUIDSlots = {kCurrentUIDSlotsNumbers, 10};

const char kCurrentUIDTexts[] =
    "1.2.840.10008.1.1\0" "Verification SOP Class\0" "Verification\0"
    "SOP Class\0"
    "1.2.840.10008.1.2\0" "Implicit VR Little Endian\0" "ImplicitVRLittleEndian\0"
    "Transfer Syntax\0"
    "1.2.840.10008.1.2.1\0" "Explicit VR Little Endian\0" "ExplicitVRLittleEndian\0"
    "1.2.840.10008.1.2.1.98\0" "Encapsulated Uncompressed Explicit VR Little Endian\0" "EncapsulatedUncompressedExplicitVRLittleEndian\0"
    "1.2.840.10008.1.2.1.99\0" "Deflated Explicit VR Little Endian\0" "DeflatedExplicitVRLittleEndian\0"
    "1.2.840.10008.1.2.2\0" "Explicit VR Big Endian\0" "ExplicitVRBigEndian\0"
    "1.2.840.10008.1.2.4.50\0" "JPEG Baseline (Process 1)\0" "JPEGBaseline8Bit\0"
    "1.2.840.10008.1.2.4.51\0" "JPEG Extended (Process 2 and 4)\0" "JPEGExtended12Bit\0"
    "1.2.840.10008.1.2.4.52\0" "JPEG Extended (Process 3 and 5)\0" "JPEGExtended35\0"
    "1.2.840.10008.1.2.4.53\0" "JPEG Spectral Selection, Non-Hierarchical (Process 6 and 8)\0" "JPEGSpectralSelectionNonHierarchical68\0"
    "1.2.840.10008.1.2.4.54\0" "JPEG Spectral Selection, Non-Hierarchical (Process 7 and 9)\0" "JPEGSpectralSelectionNonHierarchical79\0"
    "1.2.840.10008.1.2.4.55\0" "JPEG Full Progression, Non-Hierarchical (Process 10 and 12)\0" "JPEGFullProgressionNonHierarchical1012\0"
    "1.2.840.10008.1.2.4.56\0" "JPEG Full Progression, Non-Hierarchical (Process 11 and 13)\0" "JPEGFullProgressionNonHierarchical1113\0"
    "1.2.840.10008.1.2.4.57\0" "JPEG Lossless, Non-Hierarchical (Process 14)\0" "JPEGLossless\0"
    "1.2.840.10008.1.2.4.58\0" "JPEG Lossless, Non-Hierarchical (Process 15)\0" "JPEGLosslessNonHierarchical15\0"
    "1.2.840.10008.1.2.4.59\0" "JPEG Extended, Hierarchical (Process 16 and 18)\0" "JPEGExtendedHierarchical1618\0"
    "1.2.840.10008.1.2.4.60\0" "JPEG Extended, Hierarchical (Process 17 and 19)\0" "JPEGExtendedHierarchical1719\0"
    "1.2.840.10008.1.2.4.61\0" "JPEG Spectral Selection, Hierarchical (Process 20 and 22)\0" "JPEGSpectralSelectionHierarchical2022\0"
    "1.2.840.10008.1.2.4.62\0" "JPEG Spectral Selection, Hierarchical (Process 21 and 23)\0" "JPEGSpectralSelectionHierarchical2123\0"
    "1.2.840.10008.1.2.4.63\0" "JPEG Full Progression, Hierarchical (Process 24 and 26)\0" "JPEGFullProgressionHierarchical2426\0"
    "1.2.840.10008.1.2.4.64\0" "JPEG Full Progression, Hierarchical (Process 25 and 27)\0" "JPEGFullProgressionHierarchical2527\0"
    "1.2.840.10008.1.2.4.65\0" "JPEG Lossless, Hierarchical (Process 28)\0" "JPEGLosslessHierarchical28\0"
    "1.2.840.10008.1.2.4.66\0" "JPEG Lossless, Hierarchical (Process 29)\0" "JPEGLosslessHierarchical29\0"
    "1.2.840.10008.1.2.4.70\0" "JPEG Lossless, Non-Hierarchical, First-Order Prediction (Process 14 [Selection Value 1])\0" "JPEGLosslessSV1\0"
    "1.2.840.10008.1.2.4.80\0" "JPEG-LS Lossless Image Compression\0" "JPEGLSLossless\0"
    "1.2.840.10008.1.2.4.81\0" "JPEG-LS Lossy (Near-Lossless) Image Compression\0" "JPEGLSNearLossless\0"
    "1.2.840.10008.1.2.4.90\0" "JPEG 2000 Image Compression (Lossless Only)\0" "JPEG2000Lossless\0"
    "1.2.840.10008.1.2.4.91\0" "JPEG 2000 Image Compression\0" "JPEG2000\0"
    "1.2.840.10008.1.2.4.92\0" "JPEG 2000 Part 2 Multi-component Image Compression (Lossless Only)\0" "JPEG2000MCLossless\0"
    "1.2.840.10008.1.2.4.93\0" "JPEG 2000 Part 2 Multi-component Image Compression\0" "JPEG2000MC\0"
    "1.2.840.10008.1.2.4.94\0" "JPIP Referenced\0" "JPIPReferenced\0"
    "1.2.840.10008.1.2.4.95\0" "JPIP Referenced Deflate\0" "JPIPReferencedDeflate\0"
    "1.2.840.10008.1.2.4.100\0" "MPEG2 Main Profile / Main Level\0" "MPEG2MPML\0"
    "1.2.840.10008.1.2.4.100.1\0" "Fragmentable MPEG2 Main Profile / Main Level\0" "MPEG2MPMLF\0"
    "1.2.840.10008.1.2.4.101\0" "MPEG2 Main Profile / High Level\0" "MPEG2MPHL\0"
    "1.2.840.10008.1.2.4.101.1\0" "Fragmentable MPEG2 Main Profile / High Level\0" "MPEG2MPHLF\0"
    "1.2.840.10008.1.2.4.102\0" "MPEG-4 AVC/H.264 High Profile / Level 4.1\0" "MPEG4HP41\0"
    "1.2.840.10008.1.2.4.102.1\0" "Fragmentable MPEG-4 AVC/H.264 High Profile / Level 4.1\0" "MPEG4HP41F\0"
    "1.2.840.10008.1.2.4.103\0" "MPEG-4 AVC/H.264 BD-compatible High Profile / Level 4.1\0" "MPEG4HP41BD\0"
    "1.2.840.10008.1.2.4.103.1\0" "Fragmentable MPEG-4 AVC/H.264 BD-compatible High Profile / Level 4.1\0" "MPEG4HP41BDF\0"
    "1.2.840.10008.1.2.4.104\0" "MPEG-4 AVC/H.264 High Profile / Level 4.2 For 2D Video\0" "MPEG4HP422D\0"
    "1.2.840.10008.1.2.4.104.1\0" "Fragmentable MPEG-4 AVC/H.264 High Profile / Level 4.2 For 2D Video\0" "MPEG4HP422DF\0"
    "1.2.840.10008.1.2.4.105\0" "MPEG-4 AVC/H.264 High Profile / Level 4.2 For 3D Video\0" "MPEG4HP423D\0"
    "1.2.840.10008.1.2.4.105.1\0" "Fragmentable MPEG-4 AVC/H.264 High Profile / Level 4.2 For 3D Video\0" "MPEG4HP423DF\0"
    "1.2.840.10008.1.2.4.106\0" "MPEG-4 AVC/H.264 Stereo High Profile / Level 4.2\0" "MPEG4HP42STEREO\0"
    "1.2.840.10008.1.2.4.106.1\0" "Fragmentable MPEG-4 AVC/H.264 Stereo High Profile / Level 4.2\0" "MPEG4HP42STEREOF\0"
    "1.2.840.10008.1.2.4.107\0" "HEVC/H.265 Main Profile / Level 5.1\0" "HEVCMP51\0"
    "1.2.840.10008.1.2.4.108\0" "HEVC/H.265 Main 10 Profile / Level 5.1\0" "HEVCM10P51\0"
    "1.2.840.10008.1.2.4.110\0" "JPEG XL Lossless\0" "JPEGXLLossless\0"
    "1.2.840.10008.1.2.4.111\0" "JPEG XL JPEG Recompression\0" "JPEGXLJPEGRecompression\0"
    "1.2.840.10008.1.2.4.112\0" "JPEG XL\0" "JPEGXL\0"
    "1.2.840.10008.1.2.4.201\0" "High-Throughput JPEG 2000 Image Compression (Lossless Only)\0" "HTJ2KLossless\0"
    "1.2.840.10008.1.2.4.202\0" "High-Throughput JPEG 2000 with RPCL Options Image Compression (Lossless Only)\0" "HTJ2KLosslessRPCL\0"
    "1.2.840.10008.1.2.4.203\0" "High-Throughput JPEG 2000 Image Compression\0" "HTJ2K\0"
    "1.2.840.10008.1.2.4.204\0" "JPIP HTJ2K Referenced\0" "JPIPHTJ2KReferenced\0"
    "1.2.840.10008.1.2.4.205\0" "JPIP HTJ2K Referenced Deflate\0" "JPIPHTJ2KReferencedDeflate\0"
    "1.2.840.10008.1.2.5\0" "RLE Lossless\0" "RLELossless\0"
    "1.2.840.10008.1.2.6.1\0" "RFC 2557 MIME encapsulation\0" "RFC2557MIMEEncapsulation\0"
    "1.2.840.10008.1.2.6.2\0" "XML Encoding\0" "XMLEncoding\0"
    "1.2.840.10008.1.2.7.1\0" "SMPTE ST 2110-20 Uncompressed Progressive Active Video\0" "SMPTEST211020UncompressedProgressiveActiveVideo\0"
    "1.2.840.10008.1.2.7.2\0" "SMPTE ST 2110-20 Uncompressed Interlaced Active Video\0" "SMPTEST211020UncompressedInterlacedActiveVideo\0"
    "1.2.840.10008.1.2.7.3\0" "SMPTE ST 2110-30 PCM Digital Audio\0" "SMPTEST211030PCMDigitalAudio\0"
    "1.2.840.10008.1.2.8.1\0" "Deflated Image Frame Compression\0" "DeflatedImageFrameCompression\0"
    "1.2.840.10008.1.3.10\0" "Media Storage Directory Storage\0" "MediaStorageDirectoryStorage\0"
    "1.2.840.10008.1.5.1\0" "Hot Iron Color Palette SOP Instance\0" "HotIronPalette\0"
    "Well-known SOP Instance\0"
    "1.2.840.10008.1.5.2\0" "PET Color Palette SOP Instance\0" "PETPalette\0"
    "1.2.840.10008.1.5.3\0" "Hot Metal Blue Color Palette SOP Instance\0" "HotMetalBluePalette\0"
    "1.2.840.10008.1.5.4\0" "PET 20 Step Color Palette SOP Instance\0" "PET20StepPalette\0"
    "1.2.840.10008.1.5.5\0" "Spring Color Palette SOP Instance\0" "SpringPalette\0"
    "1.2.840.10008.1.5.6\0" "Summer Color Palette SOP Instance\0" "SummerPalette\0"
    "1.2.840.10008.1.5.7\0" "Fall Color Palette SOP Instance\0" "FallPalette\0"
    "1.2.840.10008.1.5.8\0" "Winter Color Palette SOP Instance\0" "WinterPalette\0"
    "1.2.840.10008.1.9\0" "Basic Study Content Notification SOP Class\0" "BasicStudyContentNotification\0"
    "1.2.840.10008.1.20\0" "Papyrus 3 Implicit VR Little Endian\0" "Papyrus3ImplicitVRLittleEndian\0"
    "1.2.840.10008.1.20.1\0" "Storage Commitment Push Model SOP Class\0" "StorageCommitmentPushModel\0"
    "1.2.840.10008.1.20.1.1\0" "Storage Commitment Push Model SOP Instance\0" "StorageCommitmentPushModelInstance\0"
    "1.2.840.10008.1.20.2\0" "Storage Commitment Pull Model SOP Class\0" "StorageCommitmentPullModel\0"
    "1.2.840.10008.1.20.2.1\0" "Storage Commitment Pull Model SOP Instance\0" "StorageCommitmentPullModelInstance\0"
    "1.2.840.10008.1.40\0" "Procedural Event Logging SOP Class\0" "ProceduralEventLogging\0"
    "1.2.840.10008.1.40.1\0" "Procedural Event Logging SOP Instance\0" "ProceduralEventLoggingInstance\0"
    "1.2.840.10008.1.42\0" "Substance Administration Logging SOP Class\0" "SubstanceAdministrationLogging\0"
    "1.2.840.10008.1.42.1\0" "Substance Administration Logging SOP Instance\0" "SubstanceAdministrationLoggingInstance\0"
    "1.2.840.10008.2.6.1\0" "DICOM UID Registry\0" "DCMUID\0"
    "DICOM UIDs as a Coding Scheme\0"
    "1.2.840.10008.2.16.4\0" "DICOM Controlled Terminology\0" "DCM\0"
    "Coding Scheme\0"
    "1.2.840.10008.2.16.5\0" "Adult Mouse Anatomy Ontology\0" "MA\0"
    "1.2.840.10008.2.16.6\0" "Uberon Ontology\0" "UBERON\0"
    "1.2.840.10008.2.16.7\0" "Integrated Taxonomic Information System (ITIS) Taxonomic Serial Number (TSN)\0" "ITIS_TSN\0"
    "1.2.840.10008.2.16.8\0" "Mouse Genome Initiative (MGI)\0" "MGI\0"
    "1.2.840.10008.2.16.9\0" "PubChem Compound CID\0" "PUBCHEM_CID\0"
    "1.2.840.10008.2.16.10\0" "Dublin Core\0" "DC\0"
    "1.2.840.10008.2.16.11\0" "New York University Melanoma Clinical Cooperative Group\0" "NYUMCCG\0"
    "1.2.840.10008.2.16.12\0" "Mayo Clinic Non-radiological Images Specific Body Structure Anatomical Surface Region Guide\0" "MAYONRISBSASRG\0"
    "1.2.840.10008.2.16.13\0" "Image Biomarker Standardisation Initiative\0" "IBSI\0"
    "1.2.840.10008.2.16.14\0" "Radiomics Ontology\0" "RO\0"
    "1.2.840.10008.2.16.15\0" "RadElement\0" "RADELEMENT\0"
    "1.2.840.10008.2.16.16\0" "ICD-11\0" "I11\0"
    "1.2.840.10008.2.16.17\0" "Unified numbering system (UNS) for metals and alloys\0" "UNS\0"
    "1.2.840.10008.2.16.18\0" "Research Resource Identification\0" "RRID\0"
    "1.2.840.10008.3.1.1.1\0" "DICOM Application Context Name\0" "DICOMApplicationContext\0"
    "Application Context Name\0"
    "1.2.840.10008.3.1.2.1.1\0" "Detached Patient Management SOP Class\0" "DetachedPatientManagement\0"
    "1.2.840.10008.3.1.2.1.4\0" "Detached Patient Management Meta SOP Class\0" "DetachedPatientManagementMeta\0"
    "Meta SOP Class\0"
    "1.2.840.10008.3.1.2.2.1\0" "Detached Visit Management SOP Class\0" "DetachedVisitManagement\0"
    "1.2.840.10008.3.1.2.3.1\0" "Detached Study Management SOP Class\0" "DetachedStudyManagement\0"
    "1.2.840.10008.3.1.2.3.2\0" "Study Component Management SOP Class\0" "StudyComponentManagement\0"
    "1.2.840.10008.3.1.2.3.3\0" "Modality Performed Procedure Step SOP Class\0" "ModalityPerformedProcedureStep\0"
    "1.2.840.10008.3.1.2.3.4\0" "Modality Performed Procedure Step Retrieve SOP Class\0" "ModalityPerformedProcedureStepRetrieve\0"
    "1.2.840.10008.3.1.2.3.5\0" "Modality Performed Procedure Step Notification SOP Class\0" "ModalityPerformedProcedureStepNotification\0"
    "1.2.840.10008.3.1.2.5.1\0" "Detached Results Management SOP Class\0" "DetachedResultsManagement\0"
    "1.2.840.10008.3.1.2.5.4\0" "Detached Results Management Meta SOP Class\0" "DetachedResultsManagementMeta\0"
    "1.2.840.10008.3.1.2.5.5\0" "Detached Study Management Meta SOP Class\0" "DetachedStudyManagementMeta\0"
    "1.2.840.10008.3.1.2.6.1\0" "Detached Interpretation Management SOP Class\0" "DetachedInterpretationManagement\0"
    "1.2.840.10008.4.2\0" "Storage Service Class\0" "Storage\0"
    "Service Class\0"
    "1.2.840.10008.5.1.1.1\0" "Basic Film Session SOP Class\0" "BasicFilmSession\0"
    "1.2.840.10008.5.1.1.2\0" "Basic Film Box SOP Class\0" "BasicFilmBox\0"
    "1.2.840.10008.5.1.1.4\0" "Basic Grayscale Image Box SOP Class\0" "BasicGrayscaleImageBox\0"
    "1.2.840.10008.5.1.1.4.1\0" "Basic Color Image Box SOP Class\0" "BasicColorImageBox\0"
    "1.2.840.10008.5.1.1.4.2\0" "Referenced Image Box SOP Class\0" "ReferencedImageBox\0"
    "1.2.840.10008.5.1.1.9\0" "Basic Grayscale Print Management Meta SOP Class\0" "BasicGrayscalePrintManagementMeta\0"
    "1.2.840.10008.5.1.1.9.1\0" "Referenced Grayscale Print Management Meta SOP Class\0" "ReferencedGrayscalePrintManagementMeta\0"
    "1.2.840.10008.5.1.1.14\0" "Print Job SOP Class\0" "PrintJob\0"
    "1.2.840.10008.5.1.1.15\0" "Basic Annotation Box SOP Class\0" "BasicAnnotationBox\0"
    "1.2.840.10008.5.1.1.16\0" "Printer SOP Class\0" "Printer\0"
    "1.2.840.10008.5.1.1.16.376\0" "Printer Configuration Retrieval SOP Class\0" "PrinterConfigurationRetrieval\0"
    "1.2.840.10008.5.1.1.17\0" "Printer SOP Instance\0" "PrinterInstance\0"
    "1.2.840.10008.5.1.1.17.376\0" "Printer Configuration Retrieval SOP Instance\0" "PrinterConfigurationRetrievalInstance\0"
    "1.2.840.10008.5.1.1.18\0" "Basic Color Print Management Meta SOP Class\0" "BasicColorPrintManagementMeta\0"
    "1.2.840.10008.5.1.1.18.1\0" "Referenced Color Print Management Meta SOP Class\0" "ReferencedColorPrintManagementMeta\0"
    "1.2.840.10008.5.1.1.22\0" "VOI LUT Box SOP Class\0" "VOILUTBox\0"
    "1.2.840.10008.5.1.1.23\0" "Presentation LUT SOP Class\0" "PresentationLUT\0"
    "1.2.840.10008.5.1.1.24\0" "Image Overlay Box SOP Class\0" "ImageOverlayBox\0"
    "1.2.840.10008.5.1.1.24.1\0" "Basic Print Image Overlay Box SOP Class\0" "BasicPrintImageOverlayBox\0"
    "1.2.840.10008.5.1.1.25\0" "Print Queue SOP Instance\0" "PrintQueueInstance\0"
    "1.2.840.10008.5.1.1.26\0" "Print Queue Management SOP Class\0" "PrintQueueManagement\0"
    "1.2.840.10008.5.1.1.27\0" "Stored Print Storage SOP Class\0" "StoredPrintStorage\0"
    "1.2.840.10008.5.1.1.29\0" "Hardcopy Grayscale Image Storage SOP Class\0" "HardcopyGrayscaleImageStorage\0"
    "1.2.840.10008.5.1.1.30\0" "Hardcopy Color Image Storage SOP Class\0" "HardcopyColorImageStorage\0"
    "1.2.840.10008.5.1.1.31\0" "Pull Print Request SOP Class\0" "PullPrintRequest\0"
    "1.2.840.10008.5.1.1.32\0" "Pull Stored Print Management Meta SOP Class\0" "PullStoredPrintManagementMeta\0"
    "1.2.840.10008.5.1.1.33\0" "Media Creation Management SOP Class UID\0" "MediaCreationManagement\0"
    "1.2.840.10008.5.1.1.40\0" "Display System SOP Class\0" "DisplaySystem\0"
    "1.2.840.10008.5.1.1.40.1\0" "Display System SOP Instance\0" "DisplaySystemInstance\0"
    "1.2.840.10008.5.1.4.1.1.1\0" "Computed Radiography Image Storage\0" "ComputedRadiographyImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.1.1\0" "Digital X-Ray Image Storage - For Presentation\0" "DigitalXRayImageStorageForPresentation\0"
    "1.2.840.10008.5.1.4.1.1.1.1.1\0" "Digital X-Ray Image Storage - For Processing\0" "DigitalXRayImageStorageForProcessing\0"
    "1.2.840.10008.5.1.4.1.1.1.2\0" "Digital Mammography X-Ray Image Storage - For Presentation\0" "DigitalMammographyXRayImageStorageForPresentation\0"
    "1.2.840.10008.5.1.4.1.1.1.2.1\0" "Digital Mammography X-Ray Image Storage - For Processing\0" "DigitalMammographyXRayImageStorageForProcessing\0"
    "1.2.840.10008.5.1.4.1.1.1.3\0" "Digital Intra-Oral X-Ray Image Storage - For Presentation\0" "DigitalIntraOralXRayImageStorageForPresentation\0"
    "1.2.840.10008.5.1.4.1.1.1.3.1\0" "Digital Intra-Oral X-Ray Image Storage - For Processing\0" "DigitalIntraOralXRayImageStorageForProcessing\0"
    "1.2.840.10008.5.1.4.1.1.2\0" "CT Image Storage\0" "CTImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.2.1\0" "Enhanced CT Image Storage\0" "EnhancedCTImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.2.2\0" "Legacy Converted Enhanced CT Image Storage\0" "LegacyConvertedEnhancedCTImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.3\0" "Ultrasound Multi-frame Image Storage\0" "UltrasoundMultiFrameImageStorageRetired\0"
    "1.2.840.10008.5.1.4.1.1.3.1\0" "Ultrasound Multi-frame Image Storage\0" "UltrasoundMultiFrameImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.4\0" "MR Image Storage\0" "MRImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.4.1\0" "Enhanced MR Image Storage\0" "EnhancedMRImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.4.2\0" "MR Spectroscopy Storage\0" "MRSpectroscopyStorage\0"
    "1.2.840.10008.5.1.4.1.1.4.3\0" "Enhanced MR Color Image Storage\0" "EnhancedMRColorImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.4.4\0" "Legacy Converted Enhanced MR Image Storage\0" "LegacyConvertedEnhancedMRImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.5\0" "Nuclear Medicine Image Storage\0" "NuclearMedicineImageStorageRetired\0"
    "1.2.840.10008.5.1.4.1.1.6\0" "Ultrasound Image Storage\0" "UltrasoundImageStorageRetired\0"
    "1.2.840.10008.5.1.4.1.1.6.1\0" "Ultrasound Image Storage\0" "UltrasoundImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.6.2\0" "Enhanced US Volume Storage\0" "EnhancedUSVolumeStorage\0"
    "1.2.840.10008.5.1.4.1.1.6.3\0" "Photoacoustic Image Storage\0" "PhotoacousticImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.7\0" "Secondary Capture Image Storage\0" "SecondaryCaptureImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.7.1\0" "Multi-frame Single Bit Secondary Capture Image Storage\0" "MultiFrameSingleBitSecondaryCaptureImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.7.2\0" "Multi-frame Grayscale Byte Secondary Capture Image Storage\0" "MultiFrameGrayscaleByteSecondaryCaptureImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.7.3\0" "Multi-frame Grayscale Word Secondary Capture Image Storage\0" "MultiFrameGrayscaleWordSecondaryCaptureImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.7.4\0" "Multi-frame True Color Secondary Capture Image Storage\0" "MultiFrameTrueColorSecondaryCaptureImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.8\0" "Standalone Overlay Storage\0" "StandaloneOverlayStorage\0"
    "1.2.840.10008.5.1.4.1.1.9\0" "Standalone Curve Storage\0" "StandaloneCurveStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.1\0" "Waveform Storage - Trial\0" "WaveformStorageTrial\0"
    "1.2.840.10008.5.1.4.1.1.9.1.1\0" "12-lead ECG Waveform Storage\0" "TwelveLeadECGWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.1.2\0" "General ECG Waveform Storage\0" "GeneralECGWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.1.3\0" "Ambulatory ECG Waveform Storage\0" "AmbulatoryECGWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.1.4\0" "General 32-bit ECG Waveform Storage\0" "General32bitECGWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.2.1\0" "Hemodynamic Waveform Storage\0" "HemodynamicWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.3.1\0" "Cardiac Electrophysiology Waveform Storage\0" "CardiacElectrophysiologyWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.4.1\0" "Basic Voice Audio Waveform Storage\0" "BasicVoiceAudioWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.4.2\0" "General Audio Waveform Storage\0" "GeneralAudioWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.5.1\0" "Arterial Pulse Waveform Storage\0" "ArterialPulseWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.6.1\0" "Respiratory Waveform Storage\0" "RespiratoryWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.6.2\0" "Multi-channel Respiratory Waveform Storage\0" "MultichannelRespiratoryWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.7.1\0" "Routine Scalp Electroencephalogram Waveform Storage\0" "RoutineScalpElectroencephalogramWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.7.2\0" "Electromyogram Waveform Storage\0" "ElectromyogramWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.7.3\0" "Electrooculogram Waveform Storage\0" "ElectrooculogramWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.7.4\0" "Sleep Electroencephalogram Waveform Storage\0" "SleepElectroencephalogramWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.9.8.1\0" "Body Position Waveform Storage\0" "BodyPositionWaveformStorage\0"
    "1.2.840.10008.5.1.4.1.1.10\0" "Standalone Modality LUT Storage\0" "StandaloneModalityLUTStorage\0"
    "1.2.840.10008.5.1.4.1.1.11\0" "Standalone VOI LUT Storage\0" "StandaloneVOILUTStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.1\0" "Grayscale Softcopy Presentation State Storage\0" "GrayscaleSoftcopyPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.2\0" "Color Softcopy Presentation State Storage\0" "ColorSoftcopyPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.3\0" "Pseudo-Color Softcopy Presentation State Storage\0" "PseudoColorSoftcopyPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.4\0" "Blending Softcopy Presentation State Storage\0" "BlendingSoftcopyPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.5\0" "XA/XRF Grayscale Softcopy Presentation State Storage\0" "XAXRFGrayscaleSoftcopyPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.6\0" "Grayscale Planar MPR Volumetric Presentation State Storage\0" "GrayscalePlanarMPRVolumetricPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.7\0" "Compositing Planar MPR Volumetric Presentation State Storage\0" "CompositingPlanarMPRVolumetricPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.8\0" "Advanced Blending Presentation State Storage\0" "AdvancedBlendingPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.9\0" "Volume Rendering Volumetric Presentation State Storage\0" "VolumeRenderingVolumetricPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.10\0" "Segmented Volume Rendering Volumetric Presentation State Storage\0" "SegmentedVolumeRenderingVolumetricPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.11\0" "Multiple Volume Rendering Volumetric Presentation State Storage\0" "MultipleVolumeRenderingVolumetricPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.11.12\0" "Variable Modality LUT Softcopy Presentation State Storage\0" "VariableModalityLUTSoftcopyPresentationStateStorage\0"
    "1.2.840.10008.5.1.4.1.1.12.1\0" "X-Ray Angiographic Image Storage\0" "XRayAngiographicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.12.1.1\0" "Enhanced XA Image Storage\0" "EnhancedXAImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.12.2\0" "X-Ray Radiofluoroscopic Image Storage\0" "XRayRadiofluoroscopicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.12.2.1\0" "Enhanced XRF Image Storage\0" "EnhancedXRFImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.12.3\0" "X-Ray Angiographic Bi-Plane Image Storage\0" "XRayAngiographicBiPlaneImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.12.77\0" "\0" "\0"
    "1.2.840.10008.5.1.4.1.1.13.1.1\0" "X-Ray 3D Angiographic Image Storage\0" "XRay3DAngiographicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.13.1.2\0" "X-Ray 3D Craniofacial Image Storage\0" "XRay3DCraniofacialImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.13.1.3\0" "Breast Tomosynthesis Image Storage\0" "BreastTomosynthesisImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.13.1.4\0" "Breast Projection X-Ray Image Storage - For Presentation\0" "BreastProjectionXRayImageStorageForPresentation\0"
    "1.2.840.10008.5.1.4.1.1.13.1.5\0" "Breast Projection X-Ray Image Storage - For Processing\0" "BreastProjectionXRayImageStorageForProcessing\0"
    "1.2.840.10008.5.1.4.1.1.14.1\0" "Intravascular Optical Coherence Tomography Image Storage - For Presentation\0" "IntravascularOpticalCoherenceTomographyImageStorageForPresentation\0"
    "1.2.840.10008.5.1.4.1.1.14.2\0" "Intravascular Optical Coherence Tomography Image Storage - For Processing\0" "IntravascularOpticalCoherenceTomographyImageStorageForProcessing\0"
    "1.2.840.10008.5.1.4.1.1.20\0" "Nuclear Medicine Image Storage\0" "NuclearMedicineImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.30\0" "Parametric Map Storage\0" "ParametricMapStorage\0"
    "1.2.840.10008.5.1.4.1.1.40\0" "\0" "\0"
    "1.2.840.10008.5.1.4.1.1.66\0" "Raw Data Storage\0" "RawDataStorage\0"
    "1.2.840.10008.5.1.4.1.1.66.1\0" "Spatial Registration Storage\0" "SpatialRegistrationStorage\0"
    "1.2.840.10008.5.1.4.1.1.66.2\0" "Spatial Fiducials Storage\0" "SpatialFiducialsStorage\0"
    "1.2.840.10008.5.1.4.1.1.66.3\0" "Deformable Spatial Registration Storage\0" "DeformableSpatialRegistrationStorage\0"
    "1.2.840.10008.5.1.4.1.1.66.4\0" "Segmentation Storage\0" "SegmentationStorage\0"
    "1.2.840.10008.5.1.4.1.1.66.5\0" "Surface Segmentation Storage\0" "SurfaceSegmentationStorage\0"
    "1.2.840.10008.5.1.4.1.1.66.6\0" "Tractography Results Storage\0" "TractographyResultsStorage\0"
    "1.2.840.10008.5.1.4.1.1.66.7\0" "Label Map Segmentation Storage\0" "LabelMapSegmentationStorage\0"
    "1.2.840.10008.5.1.4.1.1.66.8\0" "Height Map Segmentation Storage\0" "HeightMapSegmentationStorage\0"
    "1.2.840.10008.5.1.4.1.1.67\0" "Real World Value Mapping Storage\0" "RealWorldValueMappingStorage\0"
    "1.2.840.10008.5.1.4.1.1.68.1\0" "Surface Scan Mesh Storage\0" "SurfaceScanMeshStorage\0"
    "1.2.840.10008.5.1.4.1.1.68.2\0" "Surface Scan Point Cloud Storage\0" "SurfaceScanPointCloudStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1\0" "VL Image Storage - Trial\0" "VLImageStorageTrial\0"
    "1.2.840.10008.5.1.4.1.1.77.2\0" "VL Multi-frame Image Storage - Trial\0" "VLMultiFrameImageStorageTrial\0"
    "1.2.840.10008.5.1.4.1.1.77.1.1\0" "VL Endoscopic Image Storage\0" "VLEndoscopicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.1.1\0" "Video Endoscopic Image Storage\0" "VideoEndoscopicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.2\0" "VL Microscopic Image Storage\0" "VLMicroscopicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.2.1\0" "Video Microscopic Image Storage\0" "VideoMicroscopicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.3\0" "VL Slide-Coordinates Microscopic Image Storage\0" "VLSlideCoordinatesMicroscopicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.4\0" "VL Photographic Image Storage\0" "VLPhotographicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.4.1\0" "Video Photographic Image Storage\0" "VideoPhotographicImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.5.1\0" "Ophthalmic Photography 8 Bit Image Storage\0" "OphthalmicPhotography8BitImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.5.2\0" "Ophthalmic Photography 16 Bit Image Storage\0" "OphthalmicPhotography16BitImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.5.3\0" "Stereometric Relationship Storage\0" "StereometricRelationshipStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.5.4\0" "Ophthalmic Tomography Image Storage\0" "OphthalmicTomographyImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.5.5\0" "Wide Field Ophthalmic Photography Stereographic Projection Image Storage\0" "WideFieldOphthalmicPhotographyStereographicProjectionImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.5.6\0" "Wide Field Ophthalmic Photography 3D Coordinates Image Storage\0" "WideFieldOphthalmicPhotography3DCoordinatesImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.5.7\0" "Ophthalmic Optical Coherence Tomography En Face Image Storage\0" "OphthalmicOpticalCoherenceTomographyEnFaceImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.5.8\0" "Ophthalmic Optical Coherence Tomography B-scan Volume Analysis Storage\0" "OphthalmicOpticalCoherenceTomographyBscanVolumeAnalysisStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.6\0" "VL Whole Slide Microscopy Image Storage\0" "VLWholeSlideMicroscopyImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.7\0" "Dermoscopic Photography Image Storage\0" "DermoscopicPhotographyImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.8\0" "Confocal Microscopy Image Storage\0" "ConfocalMicroscopyImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.77.1.9\0" "Confocal Microscopy Tiled Pyramidal Image Storage\0" "ConfocalMicroscopyTiledPyramidalImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.78.1\0" "Lensometry Measurements Storage\0" "LensometryMeasurementsStorage\0"
    "1.2.840.10008.5.1.4.1.1.78.2\0" "Autorefraction Measurements Storage\0" "AutorefractionMeasurementsStorage\0"
    "1.2.840.10008.5.1.4.1.1.78.3\0" "Keratometry Measurements Storage\0" "KeratometryMeasurementsStorage\0"
    "1.2.840.10008.5.1.4.1.1.78.4\0" "Subjective Refraction Measurements Storage\0" "SubjectiveRefractionMeasurementsStorage\0"
    "1.2.840.10008.5.1.4.1.1.78.5\0" "Visual Acuity Measurements Storage\0" "VisualAcuityMeasurementsStorage\0"
    "1.2.840.10008.5.1.4.1.1.78.6\0" "Spectacle Prescription Report Storage\0" "SpectaclePrescriptionReportStorage\0"
    "1.2.840.10008.5.1.4.1.1.78.7\0" "Ophthalmic Axial Measurements Storage\0" "OphthalmicAxialMeasurementsStorage\0"
    "1.2.840.10008.5.1.4.1.1.78.8\0" "Intraocular Lens Calculations Storage\0" "IntraocularLensCalculationsStorage\0"
    "1.2.840.10008.5.1.4.1.1.79.1\0" "Macular Grid Thickness and Volume Report Storage\0" "MacularGridThicknessAndVolumeReportStorage\0"
    "1.2.840.10008.5.1.4.1.1.80.1\0" "Ophthalmic Visual Field Static Perimetry Measurements Storage\0" "OphthalmicVisualFieldStaticPerimetryMeasurementsStorage\0"
    "1.2.840.10008.5.1.4.1.1.81.1\0" "Ophthalmic Thickness Map Storage\0" "OphthalmicThicknessMapStorage\0"
    "1.2.840.10008.5.1.4.1.1.82.1\0" "Corneal Topography Map Storage\0" "CornealTopographyMapStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.1\0" "Text SR Storage - Trial\0" "TextSRStorageTrial\0"
    "1.2.840.10008.5.1.4.1.1.88.2\0" "Audio SR Storage - Trial\0" "AudioSRStorageTrial\0"
    "1.2.840.10008.5.1.4.1.1.88.3\0" "Detail SR Storage - Trial\0" "DetailSRStorageTrial\0"
    "1.2.840.10008.5.1.4.1.1.88.4\0" "Comprehensive SR Storage - Trial\0" "ComprehensiveSRStorageTrial\0"
    "1.2.840.10008.5.1.4.1.1.88.11\0" "Basic Text SR Storage\0" "BasicTextSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.22\0" "Enhanced SR Storage\0" "EnhancedSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.33\0" "Comprehensive SR Storage\0" "ComprehensiveSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.34\0" "Comprehensive 3D SR Storage\0" "Comprehensive3DSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.35\0" "Extensible SR Storage\0" "ExtensibleSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.40\0" "Procedure Log Storage\0" "ProcedureLogStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.50\0" "Mammography CAD SR Storage\0" "MammographyCADSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.59\0" "Key Object Selection Document Storage\0" "KeyObjectSelectionDocumentStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.65\0" "Chest CAD SR Storage\0" "ChestCADSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.67\0" "X-Ray Radiation Dose SR Storage\0" "XRayRadiationDoseSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.68\0" "Radiopharmaceutical Radiation Dose SR Storage\0" "RadiopharmaceuticalRadiationDoseSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.69\0" "Colon CAD SR Storage\0" "ColonCADSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.70\0" "Implantation Plan SR Storage\0" "ImplantationPlanSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.71\0" "Acquisition Context SR Storage\0" "AcquisitionContextSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.72\0" "Simplified Adult Echo SR Storage\0" "SimplifiedAdultEchoSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.73\0" "Patient Radiation Dose SR Storage\0" "PatientRadiationDoseSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.74\0" "Planned Imaging Agent Administration SR Storage\0" "PlannedImagingAgentAdministrationSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.75\0" "Performed Imaging Agent Administration SR Storage\0" "PerformedImagingAgentAdministrationSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.76\0" "Enhanced X-Ray Radiation Dose SR Storage\0" "EnhancedXRayRadiationDoseSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.88.77\0" "Waveform Annotation SR Storage\0" "WaveformAnnotationSRStorage\0"
    "1.2.840.10008.5.1.4.1.1.90.1\0" "Content Assessment Results Storage\0" "ContentAssessmentResultsStorage\0"
    "1.2.840.10008.5.1.4.1.1.91.1\0" "Microscopy Bulk Simple Annotations Storage\0" "MicroscopyBulkSimpleAnnotationsStorage\0"
    "1.2.840.10008.5.1.4.1.1.104.1\0" "Encapsulated PDF Storage\0" "EncapsulatedPDFStorage\0"
    "1.2.840.10008.5.1.4.1.1.104.2\0" "Encapsulated CDA Storage\0" "EncapsulatedCDAStorage\0"
    "1.2.840.10008.5.1.4.1.1.104.3\0" "Encapsulated STL Storage\0" "EncapsulatedSTLStorage\0"
    "1.2.840.10008.5.1.4.1.1.104.4\0" "Encapsulated OBJ Storage\0" "EncapsulatedOBJStorage\0"
    "1.2.840.10008.5.1.4.1.1.104.5\0" "Encapsulated MTL Storage\0" "EncapsulatedMTLStorage\0"
    "1.2.840.10008.5.1.4.1.1.128\0" "Positron Emission Tomography Image Storage\0" "PositronEmissionTomographyImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.128.1\0" "Legacy Converted Enhanced PET Image Storage\0" "LegacyConvertedEnhancedPETImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.129\0" "Standalone PET Curve Storage\0" "StandalonePETCurveStorage\0"
    "1.2.840.10008.5.1.4.1.1.130\0" "Enhanced PET Image Storage\0" "EnhancedPETImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.131\0" "Basic Structured Display Storage\0" "BasicStructuredDisplayStorage\0"
    "1.2.840.10008.5.1.4.1.1.200.1\0" "CT Defined Procedure Protocol Storage\0" "CTDefinedProcedureProtocolStorage\0"
    "1.2.840.10008.5.1.4.1.1.200.2\0" "CT Performed Procedure Protocol Storage\0" "CTPerformedProcedureProtocolStorage\0"
    "1.2.840.10008.5.1.4.1.1.200.3\0" "Protocol Approval Storage\0" "ProtocolApprovalStorage\0"
    "1.2.840.10008.5.1.4.1.1.200.4\0" "Protocol Approval Information Model - FIND\0" "ProtocolApprovalInformationModelFind\0"
    "1.2.840.10008.5.1.4.1.1.200.5\0" "Protocol Approval Information Model - MOVE\0" "ProtocolApprovalInformationModelMove\0"
    "1.2.840.10008.5.1.4.1.1.200.6\0" "Protocol Approval Information Model - GET\0" "ProtocolApprovalInformationModelGet\0"
    "1.2.840.10008.5.1.4.1.1.200.7\0" "XA Defined Procedure Protocol Storage\0" "XADefinedProcedureProtocolStorage\0"
    "1.2.840.10008.5.1.4.1.1.200.8\0" "XA Performed Procedure Protocol Storage\0" "XAPerformedProcedureProtocolStorage\0"
    "1.2.840.10008.5.1.4.1.1.201.1\0" "Inventory Storage\0" "InventoryStorage\0"
    "1.2.840.10008.5.1.4.1.1.201.2\0" "Inventory - FIND\0" "InventoryFind\0"
    "1.2.840.10008.5.1.4.1.1.201.3\0" "Inventory - MOVE\0" "InventoryMove\0"
    "1.2.840.10008.5.1.4.1.1.201.4\0" "Inventory - GET\0" "InventoryGet\0"
    "1.2.840.10008.5.1.4.1.1.201.5\0" "Inventory Creation\0" "InventoryCreation\0"
    "1.2.840.10008.5.1.4.1.1.201.6\0" "Repository Query\0" "RepositoryQuery\0"
    "1.2.840.10008.5.1.4.1.1.201.1.1\0" "Storage Management SOP Instance\0" "StorageManagementInstance\0"
    "1.2.840.10008.5.1.4.1.1.481.1\0" "RT Image Storage\0" "RTImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.2\0" "RT Dose Storage\0" "RTDoseStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.3\0" "RT Structure Set Storage\0" "RTStructureSetStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.4\0" "RT Beams Treatment Record Storage\0" "RTBeamsTreatmentRecordStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.5\0" "RT Plan Storage\0" "RTPlanStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.6\0" "RT Brachy Treatment Record Storage\0" "RTBrachyTreatmentRecordStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.7\0" "RT Treatment Summary Record Storage\0" "RTTreatmentSummaryRecordStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.8\0" "RT Ion Plan Storage\0" "RTIonPlanStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.9\0" "RT Ion Beams Treatment Record Storage\0" "RTIonBeamsTreatmentRecordStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.10\0" "RT Physician Intent Storage\0" "RTPhysicianIntentStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.11\0" "RT Segment Annotation Storage\0" "RTSegmentAnnotationStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.12\0" "RT Radiation Set Storage\0" "RTRadiationSetStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.13\0" "C-Arm Photon-Electron Radiation Storage\0" "CArmPhotonElectronRadiationStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.14\0" "Tomotherapeutic Radiation Storage\0" "TomotherapeuticRadiationStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.15\0" "Robotic-Arm Radiation Storage\0" "RoboticArmRadiationStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.16\0" "RT Radiation Record Set Storage\0" "RTRadiationRecordSetStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.17\0" "RT Radiation Salvage Record Storage\0" "RTRadiationSalvageRecordStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.18\0" "Tomotherapeutic Radiation Record Storage\0" "TomotherapeuticRadiationRecordStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.19\0" "C-Arm Photon-Electron Radiation Record Storage\0" "CArmPhotonElectronRadiationRecordStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.20\0" "Robotic Radiation Record Storage\0" "RoboticRadiationRecordStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.21\0" "RT Radiation Set Delivery Instruction Storage\0" "RTRadiationSetDeliveryInstructionStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.22\0" "RT Treatment Preparation Storage\0" "RTTreatmentPreparationStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.23\0" "Enhanced RT Image Storage\0" "EnhancedRTImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.24\0" "Enhanced Continuous RT Image Storage\0" "EnhancedContinuousRTImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.481.25\0" "RT Patient Position Acquisition Instruction Storage\0" "RTPatientPositionAcquisitionInstructionStorage\0"
    "1.2.840.10008.5.1.4.1.1.501.1\0" "DICOS CT Image Storage\0" "DICOSCTImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.501.2.1\0" "DICOS Digital X-Ray Image Storage - For Presentation\0" "DICOSDigitalXRayImageStorageForPresentation\0"
    "1.2.840.10008.5.1.4.1.1.501.2.2\0" "DICOS Digital X-Ray Image Storage - For Processing\0" "DICOSDigitalXRayImageStorageForProcessing\0"
    "1.2.840.10008.5.1.4.1.1.501.3\0" "DICOS Threat Detection Report Storage\0" "DICOSThreatDetectionReportStorage\0"
    "1.2.840.10008.5.1.4.1.1.501.4\0" "DICOS 2D AIT Storage\0" "DICOS2DAITStorage\0"
    "1.2.840.10008.5.1.4.1.1.501.5\0" "DICOS 3D AIT Storage\0" "DICOS3DAITStorage\0"
    "1.2.840.10008.5.1.4.1.1.501.6\0" "DICOS Quadrupole Resonance (QR) Storage\0" "DICOSQuadrupoleResonanceStorage\0"
    "1.2.840.10008.5.1.4.1.1.601.1\0" "Eddy Current Image Storage\0" "EddyCurrentImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.601.2\0" "Eddy Current Multi-frame Image Storage\0" "EddyCurrentMultiFrameImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.601.3\0" "Thermography Image Storage\0" "ThermographyImageStorage\0"
    "1.2.840.10008.5.1.4.1.1.601.4\0" "Thermography Multi-frame Image Storage\0" "ThermographyMultiFrameImageStorage\0"
    "1.2.840.10008.5.1.4.1.2.1.1\0" "Patient Root Query/Retrieve Information Model - FIND\0" "PatientRootQueryRetrieveInformationModelFind\0"
    "1.2.840.10008.5.1.4.1.2.1.2\0" "Patient Root Query/Retrieve Information Model - MOVE\0" "PatientRootQueryRetrieveInformationModelMove\0"
    "1.2.840.10008.5.1.4.1.2.1.3\0" "Patient Root Query/Retrieve Information Model - GET\0" "PatientRootQueryRetrieveInformationModelGet\0"
    "1.2.840.10008.5.1.4.1.2.2.1\0" "Study Root Query/Retrieve Information Model - FIND\0" "StudyRootQueryRetrieveInformationModelFind\0"
    "1.2.840.10008.5.1.4.1.2.2.2\0" "Study Root Query/Retrieve Information Model - MOVE\0" "StudyRootQueryRetrieveInformationModelMove\0"
    "1.2.840.10008.5.1.4.1.2.2.3\0" "Study Root Query/Retrieve Information Model - GET\0" "StudyRootQueryRetrieveInformationModelGet\0"
    "1.2.840.10008.5.1.4.1.2.3.1\0" "Patient/Study Only Query/Retrieve Information Model - FIND\0" "PatientStudyOnlyQueryRetrieveInformationModelFind\0"
    "1.2.840.10008.5.1.4.1.2.3.2\0" "Patient/Study Only Query/Retrieve Information Model - MOVE\0" "PatientStudyOnlyQueryRetrieveInformationModelMove\0"
    "1.2.840.10008.5.1.4.1.2.3.3\0" "Patient/Study Only Query/Retrieve Information Model - GET\0" "PatientStudyOnlyQueryRetrieveInformationModelGet\0"
    "1.2.840.10008.5.1.4.1.2.4.2\0" "Composite Instance Root Retrieve - MOVE\0" "CompositeInstanceRootRetrieveMove\0"
    "1.2.840.10008.5.1.4.1.2.4.3\0" "Composite Instance Root Retrieve - GET\0" "CompositeInstanceRootRetrieveGet\0"
    "1.2.840.10008.5.1.4.1.2.5.3\0" "Composite Instance Retrieve Without Bulk Data - GET\0" "CompositeInstanceRetrieveWithoutBulkDataGet\0"
    "1.2.840.10008.5.1.4.20.1\0" "Defined Procedure Protocol Information Model - FIND\0" "DefinedProcedureProtocolInformationModelFind\0"
    "1.2.840.10008.5.1.4.20.2\0" "Defined Procedure Protocol Information Model - MOVE\0" "DefinedProcedureProtocolInformationModelMove\0"
    "1.2.840.10008.5.1.4.20.3\0" "Defined Procedure Protocol Information Model - GET\0" "DefinedProcedureProtocolInformationModelGet\0"
    "1.2.840.10008.5.1.4.31\0" "Modality Worklist Information Model - FIND\0" "ModalityWorklistInformationModelFind\0"
    "1.2.840.10008.5.1.4.32\0" "General Purpose Worklist Management Meta SOP Class\0" "GeneralPurposeWorklistManagementMeta\0"
    "1.2.840.10008.5.1.4.32.1\0" "General Purpose Worklist Information Model - FIND\0" "GeneralPurposeWorklistInformationModelFind\0"
    "1.2.840.10008.5.1.4.32.2\0" "General Purpose Scheduled Procedure Step SOP Class\0" "GeneralPurposeScheduledProcedureStep\0"
    "1.2.840.10008.5.1.4.32.3\0" "General Purpose Performed Procedure Step SOP Class\0" "GeneralPurposePerformedProcedureStep\0"
    "1.2.840.10008.5.1.4.33\0" "Instance Availability Notification SOP Class\0" "InstanceAvailabilityNotification\0"
    "1.2.840.10008.5.1.4.34.1\0" "RT Beams Delivery Instruction Storage - Trial\0" "RTBeamsDeliveryInstructionStorageTrial\0"
    "1.2.840.10008.5.1.4.34.2\0" "RT Conventional Machine Verification - Trial\0" "RTConventionalMachineVerificationTrial\0"
    "1.2.840.10008.5.1.4.34.3\0" "RT Ion Machine Verification - Trial\0" "RTIonMachineVerificationTrial\0"
    "1.2.840.10008.5.1.4.34.4\0" "Unified Worklist and Procedure Step Service Class - Trial\0" "UnifiedWorklistAndProcedureStepTrial\0"
    "1.2.840.10008.5.1.4.34.4.1\0" "Unified Procedure Step - Push SOP Class - Trial\0" "UnifiedProcedureStepPushTrial\0"
    "1.2.840.10008.5.1.4.34.4.2\0" "Unified Procedure Step - Watch SOP Class - Trial\0" "UnifiedProcedureStepWatchTrial\0"
    "1.2.840.10008.5.1.4.34.4.3\0" "Unified Procedure Step - Pull SOP Class - Trial\0" "UnifiedProcedureStepPullTrial\0"
    "1.2.840.10008.5.1.4.34.4.4\0" "Unified Procedure Step - Event SOP Class - Trial\0" "UnifiedProcedureStepEventTrial\0"
    "1.2.840.10008.5.1.4.34.5\0" "UPS Global Subscription SOP Instance\0" "UPSGlobalSubscriptionInstance\0"
    "1.2.840.10008.5.1.4.34.5.1\0" "UPS Filtered Global Subscription SOP Instance\0" "UPSFilteredGlobalSubscriptionInstance\0"
    "1.2.840.10008.5.1.4.34.6\0" "Unified Worklist and Procedure Step Service Class\0" "UnifiedWorklistAndProcedureStep\0"
    "1.2.840.10008.5.1.4.34.6.1\0" "Unified Procedure Step - Push SOP Class\0" "UnifiedProcedureStepPush\0"
    "1.2.840.10008.5.1.4.34.6.2\0" "Unified Procedure Step - Watch SOP Class\0" "UnifiedProcedureStepWatch\0"
    "1.2.840.10008.5.1.4.34.6.3\0" "Unified Procedure Step - Pull SOP Class\0" "UnifiedProcedureStepPull\0"
    "1.2.840.10008.5.1.4.34.6.4\0" "Unified Procedure Step - Event SOP Class\0" "UnifiedProcedureStepEvent\0"
    "1.2.840.10008.5.1.4.34.6.5\0" "Unified Procedure Step - Query SOP Class\0" "UnifiedProcedureStepQuery\0"
    "1.2.840.10008.5.1.4.34.7\0" "RT Beams Delivery Instruction Storage\0" "RTBeamsDeliveryInstructionStorage\0"
    "1.2.840.10008.5.1.4.34.8\0" "RT Conventional Machine Verification\0" "RTConventionalMachineVerification\0"
    "1.2.840.10008.5.1.4.34.9\0" "RT Ion Machine Verification\0" "RTIonMachineVerification\0"
    "1.2.840.10008.5.1.4.34.10\0" "RT Brachy Application Setup Delivery Instruction Storage\0" "RTBrachyApplicationSetupDeliveryInstructionStorage\0"
    "1.2.840.10008.5.1.4.37.1\0" "General Relevant Patient Information Query\0" "GeneralRelevantPatientInformationQuery\0"
    "1.2.840.10008.5.1.4.37.2\0" "Breast Imaging Relevant Patient Information Query\0" "BreastImagingRelevantPatientInformationQuery\0"
    "1.2.840.10008.5.1.4.37.3\0" "Cardiac Relevant Patient Information Query\0" "CardiacRelevantPatientInformationQuery\0"
    "1.2.840.10008.5.1.4.38.1\0" "Hanging Protocol Storage\0" "HangingProtocolStorage\0"
    "1.2.840.10008.5.1.4.38.2\0" "Hanging Protocol Information Model - FIND\0" "HangingProtocolInformationModelFind\0"
    "1.2.840.10008.5.1.4.38.3\0" "Hanging Protocol Information Model - MOVE\0" "HangingProtocolInformationModelMove\0"
    "1.2.840.10008.5.1.4.38.4\0" "Hanging Protocol Information Model - GET\0" "HangingProtocolInformationModelGet\0"
    "1.2.840.10008.5.1.4.39.1\0" "Color Palette Storage\0" "ColorPaletteStorage\0"
    "1.2.840.10008.5.1.4.39.2\0" "Color Palette Query/Retrieve Information Model - FIND\0" "ColorPaletteQueryRetrieveInformationModelFind\0"
    "1.2.840.10008.5.1.4.39.3\0" "Color Palette Query/Retrieve Information Model - MOVE\0" "ColorPaletteQueryRetrieveInformationModelMove\0"
    "1.2.840.10008.5.1.4.39.4\0" "Color Palette Query/Retrieve Information Model - GET\0" "ColorPaletteQueryRetrieveInformationModelGet\0"
    "1.2.840.10008.5.1.4.41\0" "Product Characteristics Query SOP Class\0" "ProductCharacteristicsQuery\0"
    "1.2.840.10008.5.1.4.42\0" "Substance Approval Query SOP Class\0" "SubstanceApprovalQuery\0"
    "1.2.840.10008.5.1.4.43.1\0" "Generic Implant Template Storage\0" "GenericImplantTemplateStorage\0"
    "1.2.840.10008.5.1.4.43.2\0" "Generic Implant Template Information Model - FIND\0" "GenericImplantTemplateInformationModelFind\0"
    "1.2.840.10008.5.1.4.43.3\0" "Generic Implant Template Information Model - MOVE\0" "GenericImplantTemplateInformationModelMove\0"
    "1.2.840.10008.5.1.4.43.4\0" "Generic Implant Template Information Model - GET\0" "GenericImplantTemplateInformationModelGet\0"
    "1.2.840.10008.5.1.4.44.1\0" "Implant Assembly Template Storage\0" "ImplantAssemblyTemplateStorage\0"
    "1.2.840.10008.5.1.4.44.2\0" "Implant Assembly Template Information Model - FIND\0" "ImplantAssemblyTemplateInformationModelFind\0"
    "1.2.840.10008.5.1.4.44.3\0" "Implant Assembly Template Information Model - MOVE\0" "ImplantAssemblyTemplateInformationModelMove\0"
    "1.2.840.10008.5.1.4.44.4\0" "Implant Assembly Template Information Model - GET\0" "ImplantAssemblyTemplateInformationModelGet\0"
    "1.2.840.10008.5.1.4.45.1\0" "Implant Template Group Storage\0" "ImplantTemplateGroupStorage\0"
    "1.2.840.10008.5.1.4.45.2\0" "Implant Template Group Information Model - FIND\0" "ImplantTemplateGroupInformationModelFind\0"
    "1.2.840.10008.5.1.4.45.3\0" "Implant Template Group Information Model - MOVE\0" "ImplantTemplateGroupInformationModelMove\0"
    "1.2.840.10008.5.1.4.45.4\0" "Implant Template Group Information Model - GET\0" "ImplantTemplateGroupInformationModelGet\0"
    "1.2.840.10008.7.1.1\0" "Native DICOM Model\0" "NativeDICOMModel\0"
    "Application Hosting Model\0"
    "1.2.840.10008.7.1.2\0" "Abstract Multi-Dimensional Image Model\0" "AbstractMultiDimensionalImageModel\0"
    "1.2.840.10008.8.1.1\0" "DICOM Content Mapping Resource\0" "DICOMContentMappingResource\0"
    "Mapping Resource\0"
    "1.2.840.10008.10.1\0" "Video Endoscopic Image Real-Time Communication\0" "VideoEndoscopicImageRealTimeCommunication\0"
    "1.2.840.10008.10.2\0" "Video Photographic Image Real-Time Communication\0" "VideoPhotographicImageRealTimeCommunication\0"
    "1.2.840.10008.10.3\0" "Audio Waveform Real-Time Communication\0" "AudioWaveformRealTimeCommunication\0"
    "1.2.840.10008.10.4\0" "Rendition Selection Document Real-Time Communication\0" "RenditionSelectionDocumentRealTimeCommunication\0"
    "1.2.840.10008.15.0.3.1\0" "dicomDeviceName\0" "dicomDeviceName\0"
    "LDAP OID\0"
    "1.2.840.10008.15.0.3.2\0" "dicomDescription\0" "dicomDescription\0"
    "1.2.840.10008.15.0.3.3\0" "dicomManufacturer\0" "dicomManufacturer\0"
    "1.2.840.10008.15.0.3.4\0" "dicomManufacturerModelName\0" "dicomManufacturerModelName\0"
    "1.2.840.10008.15.0.3.5\0" "dicomSoftwareVersion\0" "dicomSoftwareVersion\0"
    "1.2.840.10008.15.0.3.6\0" "dicomVendorData\0" "dicomVendorData\0"
    "1.2.840.10008.15.0.3.7\0" "dicomAETitle\0" "dicomAETitle\0"
    "1.2.840.10008.15.0.3.8\0" "dicomNetworkConnectionReference\0" "dicomNetworkConnectionReference\0"
    "1.2.840.10008.15.0.3.9\0" "dicomApplicationCluster\0" "dicomApplicationCluster\0"
    "1.2.840.10008.15.0.3.10\0" "dicomAssociationInitiator\0" "dicomAssociationInitiator\0"
    "1.2.840.10008.15.0.3.11\0" "dicomAssociationAcceptor\0" "dicomAssociationAcceptor\0"
    "1.2.840.10008.15.0.3.12\0" "dicomHostname\0" "dicomHostname\0"
    "1.2.840.10008.15.0.3.13\0" "dicomPort\0" "dicomPort\0"
    "1.2.840.10008.15.0.3.14\0" "dicomSOPClass\0" "dicomSOPClass\0"
    "1.2.840.10008.15.0.3.15\0" "dicomTransferRole\0" "dicomTransferRole\0"
    "1.2.840.10008.15.0.3.16\0" "dicomTransferSyntax\0" "dicomTransferSyntax\0"
    "1.2.840.10008.15.0.3.17\0" "dicomPrimaryDeviceType\0" "dicomPrimaryDeviceType\0"
    "1.2.840.10008.15.0.3.18\0" "dicomRelatedDeviceReference\0" "dicomRelatedDeviceReference\0"
    "1.2.840.10008.15.0.3.19\0" "dicomPreferredCalledAETitle\0" "dicomPreferredCalledAETitle\0"
    "1.2.840.10008.15.0.3.20\0" "dicomTLSCyphersuite\0" "dicomTLSCyphersuite\0"
    "1.2.840.10008.15.0.3.21\0" "dicomAuthorizedNodeCertificateReference\0" "dicomAuthorizedNodeCertificateReference\0"
    "1.2.840.10008.15.0.3.22\0" "dicomThisNodeCertificateReference\0" "dicomThisNodeCertificateReference\0"
    "1.2.840.10008.15.0.3.23\0" "dicomInstalled\0" "dicomInstalled\0"
    "1.2.840.10008.15.0.3.24\0" "dicomStationName\0" "dicomStationName\0"
    "1.2.840.10008.15.0.3.25\0" "dicomDeviceSerialNumber\0" "dicomDeviceSerialNumber\0"
    "1.2.840.10008.15.0.3.26\0" "dicomInstitutionName\0" "dicomInstitutionName\0"
    "1.2.840.10008.15.0.3.27\0" "dicomInstitutionAddress\0" "dicomInstitutionAddress\0"
    "1.2.840.10008.15.0.3.28\0" "dicomInstitutionDepartmentName\0" "dicomInstitutionDepartmentName\0"
    "1.2.840.10008.15.0.3.29\0" "dicomIssuerOfPatientID\0" "dicomIssuerOfPatientID\0"
    "1.2.840.10008.15.0.3.30\0" "dicomPreferredCallingAETitle\0" "dicomPreferredCallingAETitle\0"
    "1.2.840.10008.15.0.3.31\0" "dicomSupportedCharacterSet\0" "dicomSupportedCharacterSet\0"
    "1.2.840.10008.15.0.4.1\0" "dicomConfigurationRoot\0" "dicomConfigurationRoot\0"
    "1.2.840.10008.15.0.4.2\0" "dicomDevicesRoot\0" "dicomDevicesRoot\0"
    "1.2.840.10008.15.0.4.3\0" "dicomUniqueAETitlesRegistryRoot\0" "dicomUniqueAETitlesRegistryRoot\0"
    "1.2.840.10008.15.0.4.4\0" "dicomDevice\0" "dicomDevice\0"
    "1.2.840.10008.15.0.4.5\0" "dicomNetworkAE\0" "dicomNetworkAE\0"
    "1.2.840.10008.15.0.4.6\0" "dicomNetworkConnection\0" "dicomNetworkConnection\0"
    "1.2.840.10008.15.0.4.7\0" "dicomUniqueAETitle\0" "dicomUniqueAETitle\0"
    "1.2.840.10008.15.0.4.8\0" "dicomTransferCapability\0" "dicomTransferCapability\0"
    "1.2.840.10008.15.1.1\0" "Universal Coordinated Time\0" "UTC\0"
    "Synchronization Frame of Reference\0"
    "1.2.840.10008.1.4.1.1\0" "Talairach Brain Atlas Frame of Reference\0" "TalairachBrainAtlas\0"
    "Well-known frame of reference\0"
    "1.2.840.10008.1.4.1.2\0" "SPM2 T1 Frame of Reference\0" "SPM2T1\0"
    "1.2.840.10008.1.4.1.3\0" "SPM2 T2 Frame of Reference\0" "SPM2T2\0"
    "1.2.840.10008.1.4.1.4\0" "SPM2 PD Frame of Reference\0" "SPM2PD\0"
    "1.2.840.10008.1.4.1.5\0" "SPM2 EPI Frame of Reference\0" "SPM2EPI\0"
    "1.2.840.10008.1.4.1.6\0" "SPM2 FIL T1 Frame of Reference\0" "SPM2FILT1\0"
    "1.2.840.10008.1.4.1.7\0" "SPM2 PET Frame of Reference\0" "SPM2PET\0"
    "1.2.840.10008.1.4.1.8\0" "SPM2 TRANSM Frame of Reference\0" "SPM2TRANSM\0"
    "1.2.840.10008.1.4.1.9\0" "SPM2 SPECT Frame of Reference\0" "SPM2SPECT\0"
    "1.2.840.10008.1.4.1.10\0" "SPM2 GRAY Frame of Reference\0" "SPM2GRAY\0"
    "1.2.840.10008.1.4.1.11\0" "SPM2 WHITE Frame of Reference\0" "SPM2WHITE\0"
    "1.2.840.10008.1.4.1.12\0" "SPM2 CSF Frame of Reference\0" "SPM2CSF\0"
    "1.2.840.10008.1.4.1.13\0" "SPM2 BRAINMASK Frame of Reference\0" "SPM2BRAINMASK\0"
    "1.2.840.10008.1.4.1.14\0" "SPM2 AVG305T1 Frame of Reference\0" "SPM2AVG305T1\0"
    "1.2.840.10008.1.4.1.15\0" "SPM2 AVG152T1 Frame of Reference\0" "SPM2AVG152T1\0"
    "1.2.840.10008.1.4.1.16\0" "SPM2 AVG152T2 Frame of Reference\0" "SPM2AVG152T2\0"
    "1.2.840.10008.1.4.1.17\0" "SPM2 AVG152PD Frame of Reference\0" "SPM2AVG152PD\0"
    "1.2.840.10008.1.4.1.18\0" "SPM2 SINGLESUBJT1 Frame of Reference\0" "SPM2SINGLESUBJT1\0"
    "1.2.840.10008.1.4.2.1\0" "ICBM 452 T1 Frame of Reference\0" "ICBM452T1\0"
    "1.2.840.10008.1.4.2.2\0" "ICBM Single Subject MRI Frame of Reference\0" "ICBMSingleSubjectMRI\0"
    "1.2.840.10008.1.4.3.1\0" "IEC 61217 Fixed Coordinate System Frame of Reference\0" "IEC61217FixedCoordinateSystem\0"
    "1.2.840.10008.1.4.3.2\0" "Standard Robotic-Arm Coordinate System Frame of Reference\0" "StandardRoboticArmCoordinateSystem\0"
    "1.2.840.10008.1.4.3.3\0" "IEC 61217 Table Top Coordinate System Frame of Reference\0" "IEC61217TableTopCoordinateSystem\0"
    "1.2.840.10008.1.4.4.1\0" "SRI24 Frame of Reference\0" "SRI24\0"
    "1.2.840.10008.1.4.5.1\0" "Colin27 Frame of Reference\0" "Colin27\0"
    "1.2.840.10008.1.4.6.1\0" "LPBA40/AIR Frame of Reference\0" "LPBA40AIR\0"
    "1.2.840.10008.1.4.6.2\0" "LPBA40/FLIRT Frame of Reference\0" "LPBA40FLIRT\0"
    "1.2.840.10008.1.4.6.3\0" "LPBA40/SPM5 Frame of Reference\0" "LPBA40SPM5\0";

} // namespace vdicom
