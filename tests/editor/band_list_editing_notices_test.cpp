// Adding and removing bands through the operations the graph's context menu
// also calls: any frequency and gain, the selection, the tab strip and the
// notices in order.
#include <string>
#include <vector>

#include "editor/band_list_editing.h"
#include "plugin/host_imports.h"
#include "plugin/parameters.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

using Texts = std::vector<std::string>;

class BandListEditingTest : public OpenEditorTest {};

TEST_F(BandListEditingTest, AddedBandTakesTheGivenFrequencyAndGain) {
    addBand(instance, editor(), 1234.5, 2.0);
    const BandSnapshot added = snapshotBand(instance, 4);
    EXPECT_EQ(added.type, Band);
    EXPECT_EQ(added.frequency, 1234.5);
    EXPECT_EQ(added.gain, 2.0);
    EXPECT_EQ(added.bandwidth, 2.0);
    EXPECT_EQ(instance->dirtyFlags, 3u);
}

TEST_F(BandListEditingTest, EachAddTellsTheHostOfThreeParametersAtTheEnd) {
    for (int i = 0; i < 3; ++i) addBand(instance, editor(), 700.0, 1.0);
    EXPECT_EQ(instance->effect.numParams, 21);
    EXPECT_EQ(tabTexts(), (Texts{"1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_EQ(currentTab(), 6);
    const std::vector<HostNotice> sent = notices();
    ASSERT_EQ(sent.size(), 6u);
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(sent[2 * i].paramListChange);
        EXPECT_EQ(sent[2 * i].paramListChange->first, 12 + 3 * i);
        EXPECT_EQ(sent[2 * i].paramListChange->delta, 3);
        EXPECT_EQ(sent[2 * i + 1].opcode, audioMasterAutomate);
        EXPECT_EQ(sent[2 * i + 1].index, -1);
    }
}

TEST_F(BandListEditingTest, RemovingTheFirstBandMovesTheOthersDown) {
    instance->selectedBand = 0;
    removeBand(instance, editor());
    EXPECT_EQ(snapshotBand(instance, 0).frequency, 300.0);
    EXPECT_EQ(snapshotBand(instance, 2).frequency, 5000.0);
    EXPECT_EQ(instance->selectedBand, 0);
    ASSERT_FALSE(paramListChanges().empty());
    EXPECT_EQ(paramListChanges()[0].first, 0);
    EXPECT_EQ(paramListChanges()[0].delta, -3);
}

TEST_F(BandListEditingTest, AfterARemovalHostValuesReachTheBandsAtTheirNewIndexes) {
    instance->selectedBand = 1;
    removeBand(instance, editor());
    EXPECT_EQ(instance->suspendSetParameter, 0);
    setParameter(&instance->effect, 4, 0.5f);  // now band 1 is the former band 2
    EXPECT_EQ(snapshotBand(instance, 1).frequency, 1000.0);
    EXPECT_EQ(snapshotBand(instance, 1).gain, 2.0);
}

TEST_F(BandListEditingTest, RemovalWithoutAValidSelectionDoesNothing) {
    for (int32_t selection : {-1, 4, 100}) {
        instance->selectedBand = selection;
        removeBand(instance, editor());
        EXPECT_EQ(instance->bandCount(), 4);
        EXPECT_EQ(instance->selectedBand, selection);
    }
    EXPECT_TRUE(notices().empty());
    EXPECT_EQ(tabTexts().size(), 4u);
}

TEST_F(BandListEditingTest, WithoutAHostCallbackTheListStillChanges) {
    processHostCallback = nullptr;
    addBand(instance, editor(), 700.0, 1.0);
    instance->selectedBand = 0;
    removeBand(instance, editor());
    EXPECT_EQ(instance->bandCount(), 4);
    EXPECT_EQ(snapshotBand(instance, 0).frequency, 300.0);
    EXPECT_EQ(snapshotBand(instance, 3).frequency, 700.0);
    EXPECT_TRUE(notices().empty());
}

}  // namespace
