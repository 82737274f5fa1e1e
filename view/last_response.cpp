#include "view/last_response.h"

#include <cstdint>
#include <cstring>

#include "engine/eq_band.h"
#include "engine/heap_buffer.h"
#include "view/graph_snapshot.h"

namespace {

// Everything the evaluation reads of one band.
struct BandInputs {
    double a1, a2, b0, b1, b2, sampleRate, frequency, gain;
    int32_t type, enabled;
};

BandInputs inputsOf(const EqBand& b) {
    return {b.a1, b.a2, b.b0, b.b1, b.b2, b.sampleRate, b.frequency, b.gain, b.type, b.enabled};
}

// One band's share of the sum as last evaluated, and what it was evaluated from.
struct BandShare {
    BandInputs inputs;
    int32_t drawnWidth;
    int32_t valid;
};

// Each band's share of the last paint's sum. The sum is the shares added
// column by column in band order from zero, as the evaluation adds them, so
// it comes out bit for bit the same whether a share was kept or evaluated
// again: dragging one band evaluates that band alone.
class LastResponse {
public:
    int summed(const GraphSnapshot& snapshot, const GraphAxes& axes,
               const ResponseColumns& columns) {
        const bool withPhase = columns.phase != nullptr;
        if (!fits(axes, withPhase, snapshot.count)) {
            forget();
            return sumBandResponses(snapshot, axes, columns);
        }
        bool prepared = false;
        int drawnWidth = axes.width;
        for (int32_t i = 0; i < snapshot.count; ++i) {
            const EqBand* band = snapshot.band(i);
            if (!band || !band->enabled) continue;
            BandShare& share = shares_.as<BandShare>()[i];
            const ResponseColumns terms{termsOf(i), withPhase ? termsOf(i) + width_ : nullptr};
            const BandInputs inputs = inputsOf(*band);
            if (!share.valid || std::memcmp(&share.inputs, &inputs, sizeof inputs) != 0) {
                if (!prepared && !(prepared = prepareBandResponses(axes.width, withPhase))) {
                    forget();
                    return 0;
                }
                std::memset(terms.magnitude, 0, sizeof(double) * width_ * (withPhase ? 2 : 1));
                share = {inputs, bandResponse(*band, axes, terms), 1};
            }
            addShare(share, terms, columns);
            if (share.drawnWidth < axes.width) drawnWidth = share.drawnWidth;
        }
        return drawnWidth;
    }

    void forget() { count_ = -1; }

private:
    // Storage for `count` bands' shares on this graph; every share forgotten
    // when the graph or the number of bands changed. False when it cannot grow.
    bool fits(const GraphAxes& axes, bool withPhase, int32_t count) {
        if (count == count_ && axes.width == width_ && withPhase == withPhase_ &&
            std::memcmp(&axes.gainRange, &gainRange_, sizeof gainRange_) == 0)
            return true;
        count_ = -1;
        const int32_t shareBytes = count * static_cast<int32_t>(sizeof(BandShare));
        const int64_t termBytes = int64_t{count} * 2 * axes.width * int64_t{sizeof(double)};
        if (axes.width <= 0 || termBytes > INT32_MAX) return false;
        shares_.resize(shareBytes, false);
        terms_.resize(static_cast<int32_t>(termBytes), false);
        if (shares_.size != shareBytes || terms_.size != termBytes) return false;
        if (shareBytes > 0) std::memset(shares_.data, 0, shareBytes);
        count_ = count;
        width_ = axes.width;
        withPhase_ = withPhase;
        gainRange_ = axes.gainRange;
        return true;
    }

    double* termsOf(int32_t band) { return terms_.as<double>() + int64_t{band} * 2 * width_; }

    // Adds where the evaluation adds: the columns the band reaches.
    static void addShare(const BandShare& share, const ResponseColumns& terms,
                         const ResponseColumns& columns) {
        for (int x = 0; x < share.drawnWidth; ++x) columns.magnitude[x] += terms.magnitude[x];
        if (columns.phase)
            for (int x = 0; x < share.drawnWidth; ++x) columns.phase[x] += terms.phase[x];
    }

    HeapBuffer shares_;
    HeapBuffer terms_;
    int32_t count_ = -1;
    int width_ = 0;
    bool withPhase_ = false;
    double gainRange_ = 0.0;
};

LastResponse lastResponse;

}  // namespace

int summedResponse(const GraphSnapshot& snapshot, const GraphAxes& axes,
                   const ResponseColumns& columns) {
    return lastResponse.summed(snapshot, axes, columns);
}

void forgetSummedResponse() { lastResponse.forget(); }
