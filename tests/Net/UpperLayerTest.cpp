// The table of sent and received PDUs: every event in both states, every step failing, the connection gone at each.
#include "UpperLayer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace vdicom;

namespace {

constexpr unsigned int kCode = 18;

/// Writes down what is done; fails, or goes away, at one step.
class Recorder : public UpperLayerSteps {
public:
    unsigned int Do(UpperStep step) override {
        EXPECT_FALSE(m_over) << "nothing is done after a failure that ends the row";
        steps.push_back(step);
        if (steps.size() != failAt)
            return DICOM_OK;
        m_over = gone;
        return gone ? kGone : kCode;
    }
    bool Report(unsigned int code) override {
        EXPECT_EQ(code, kCode);
        ++reports;
        return true;
    }
    std::ptrdiff_t Find(UpperStep step) const {
        const auto place = std::find(steps.begin(), steps.end(), step);
        return place == steps.end() ? -1 : place - steps.begin();
    }

    std::vector<UpperStep> steps;
    std::size_t failAt = 0;
    bool gone = false;
    int reports = 0;

private:
    bool m_over = false;
};

/// An association that is established or not.
UpperLayer Layer(bool associated) {
    UpperLayer layer;
    Recorder recorder;
    layer.Run(associated ? UpperEvent::associateAccept : UpperEvent::abort, recorder);
    EXPECT_EQ(layer.IsAssociated(), associated);
    return layer;
}

enum class State { established, not_, unchanged };
enum class Accepted { reset, unchanged, taken };

// The life of an association: what each event leaves behind.
const struct {
    UpperEvent event;
    State state;
    Accepted accepted;
    UpperStep notification;
} kLife[] = {
    {UpperEvent::sendAssociateRequest, State::not_, Accepted::reset, UpperStep::none},
    {UpperEvent::sendAssociateAccept, State::established, Accepted::taken, UpperStep::none},
    {UpperEvent::sendAssociateReject, State::not_, Accepted::unchanged, UpperStep::none},
    {UpperEvent::sendReleaseRequest, State::not_, Accepted::reset, UpperStep::none},
    {UpperEvent::sendReleaseResponse, State::not_, Accepted::reset, UpperStep::none},
    {UpperEvent::sendAbort, State::not_, Accepted::reset, UpperStep::none},
    {UpperEvent::associateRequest, State::not_, Accepted::unchanged, UpperStep::onAssociateRequest},
    {UpperEvent::associateAccept, State::established, Accepted::taken, UpperStep::onAssociateAccept},
    {UpperEvent::associateReject, State::not_, Accepted::reset, UpperStep::onAssociateReject},
    {UpperEvent::data, State::unchanged, Accepted::unchanged, UpperStep::collectData},
    {UpperEvent::releaseRequest, State::not_, Accepted::reset, UpperStep::onReleaseRequest},
    {UpperEvent::releaseResponse, State::not_, Accepted::reset, UpperStep::onReleaseResponse},
    {UpperEvent::abort, State::not_, Accepted::reset, UpperStep::onAbort},
    {UpperEvent::unknown, State::unchanged, Accepted::unchanged, UpperStep::none},
};

} // namespace

TEST(UpperLayer, EveryEventInEveryState) {
    ASSERT_EQ(std::size(kLife), kUpperEvents);
    for (const auto& life : kLife) {
        for (const bool before : {false, true}) {
            UpperLayer layer = Layer(before);
            Recorder r;
            EXPECT_EQ(layer.Run(life.event, r), 0u);
            const int event = static_cast<int>(life.event);
            EXPECT_EQ(layer.IsAssociated(), life.state == State::unchanged ? before : life.state == State::established)
                << event;
            EXPECT_EQ(r.Find(UpperStep::resetAccepted) >= 0, life.accepted == Accepted::reset) << event;
            EXPECT_EQ(r.Find(UpperStep::keepAccept) >= 0 || r.Find(UpperStep::decodeAccept) >= 0,
                      life.accepted == Accepted::taken)
                << event;
            EXPECT_EQ(r.reports, 0);
            if (life.event < UpperEvent::associateRequest) {
                EXPECT_EQ(r.Find(UpperStep::encode), 0) << event;
                EXPECT_EQ(r.steps.back(), UpperStep::send) << event;
            } else if (life.notification != UpperStep::none) {
                // OnReceive, and then at once the notification; all is as it will be, but for the titles of an accept.
                const std::ptrdiff_t place = r.Find(UpperStep::onReceive);
                ASSERT_GE(place, 0) << event;
                EXPECT_EQ(r.Find(life.notification), place + 1) << event;
                const std::ptrdiff_t rest = life.event == UpperEvent::associateAccept ? 1 : 0;
                EXPECT_EQ(static_cast<std::ptrdiff_t>(r.steps.size()), place + 2 + rest) << event;
            } else {
                EXPECT_TRUE(r.steps.empty());
            }
            // Nobody notifies of anything else.
            EXPECT_LE(
                std::count_if(r.steps.begin(), r.steps.end(), [](UpperStep s) { return s > UpperStep::onReceive; }), 1);
        }
    }
    Recorder r;
    UpperLayer().Run(UpperEvent::associateAccept, r);
    EXPECT_EQ(r.steps.back(), UpperStep::takeTitles);
    Recorder sent;
    UpperLayer().Run(UpperEvent::sendAssociateAccept, sent);
    EXPECT_LT(sent.Find(UpperStep::takeTitles), sent.Find(UpperStep::send));
    EXPECT_GT(sent.Find(UpperStep::takeTitles), sent.Find(UpperStep::keepAccept));
}

TEST(UpperLayer, StepsThatFailOrLoseTheConnection) {
    for (const auto& life : kLife) {
        Recorder whole;
        Layer(true).Run(life.event, whole);
        for (std::size_t at = 1; at <= whole.steps.size(); ++at) {
            UpperLayer layer = Layer(true);
            Recorder failing;
            failing.failAt = at;
            const unsigned int code = layer.Run(life.event, failing);
            const bool sending = life.event < UpperEvent::associateRequest;
            const bool silent = life.event >= UpperEvent::sendAssociateReject && sending;
            EXPECT_EQ(code, sending && !silent ? kCode : 0u);
            EXPECT_EQ(failing.reports, sending ? 0 : 1);
            EXPECT_EQ(failing.steps.size(), silent ? whole.steps.size() : at);
            EXPECT_TRUE(!sending || silent || layer.IsAssociated()) << "what could not be sent changes nothing";

            Recorder gone;
            gone.failAt = at;
            gone.gone = true;
            EXPECT_EQ(Layer(true).Run(life.event, gone), 0u);
            EXPECT_EQ(gone.reports, 0);
            EXPECT_EQ(gone.steps.size(), at);
        }
    }
    EXPECT_EQ(ReceivedEvent(0), UpperEvent::unknown);
    EXPECT_EQ(ReceivedEvent(8), UpperEvent::unknown);
    EXPECT_EQ(ReceivedEvent(255), UpperEvent::unknown);
    for (unsigned char type = 1; type <= 7; ++type)
        EXPECT_EQ(static_cast<int>(ReceivedEvent(type)) - static_cast<int>(UpperEvent::associateRequest), type - 1);
}
