// Replays the corpora of the fuzz targets of the reader and of directories: what once was found stays mended.
#include "ReplayCorpus.h"

#include <gtest/gtest.h>

extern "C" FuzzTarget ReaderFuzz, DirectoryFuzz;

TEST(ReaderCorpus, EveryInputHolds) {
    EXPECT_GE(ReplayCorpus("ReaderFuzz", ReaderFuzz, DirectoryFuzz) +
                  ReplayCorpus("DirectoryFuzz", ReaderFuzz, DirectoryFuzz),
              10u);
}
