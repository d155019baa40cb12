// Replays the corpora of the fuzz targets of association PDUs and of received P-DATA: what once was found stays mended.
#include "ReplayCorpus.h"

#include <gtest/gtest.h>

extern "C" FuzzTarget AssociateFuzz, PDataFuzz;

TEST(NetCorpus, EveryInputHolds) {
    EXPECT_GE(ReplayCorpus("AssociateFuzz", AssociateFuzz), 4u);
    EXPECT_GE(ReplayCorpus("PDataFuzz", PDataFuzz), 8u);
}
