#include "document/codes.h"
#include "render/velnorbarcode.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/zint_pictures.h"

namespace {

constexpr int NoOption = velnor::BarcodeOptionNotGiven;
constexpr int NotGiven = -1;
constexpr int ZintsHeight = 0;
constexpr float ZintsScale = 1.0F;

// A box and the bar height and scale that zint must have been asked for.
struct FitRow : Row {
    int width;
    int height;
    float barHeight;
    float scale;
};

class BarcodeFit : public testing::TestWithParam<FitRow> {
protected:
    void expectFit(int type, const QByteArray& data) {
        QImage made;
        EXPECT_EQ(VelnorBarcode().CreateBarcode(type, 1, data.constData(), UNICODE_MODE, "",
                                                NoOption, NoOption, NoOption, &made,
                                                GetParam().width, GetParam().height),
                  0);
        ZintRequest request;
        request.type = type;
        request.data = data;
        request.showText = true;
        request.scale = GetParam().scale;
        request.height = GetParam().barHeight;
        EXPECT_TRUE(samePicture(made, zintPicture(request)));
    }
};

// 145 x 50 dots at the smallest scale.
class Code128Fit : public BarcodeFit {};

TEST_P(Code128Fit, ChoosesTheBarHeightAndTheScale) {
    expectFit(BARCODE_CODE128, "Ticket 4711");
}

INSTANTIATE_TEST_SUITE_P(
    BarcodeSize, Code128Fit,
    testing::Values(
        FitRow{{"NoBoxKeepsTheSmallest"}, NotGiven, NotGiven, ZintsHeight, HalfScale},
        FitRow{{"BoxOfZeroIsNoBox"}, 0, 0, ZintsHeight, HalfScale},
        FitRow{{"LowestBoxIsNoBox"}, -2147483647 - 1, -2147483647 - 1, ZintsHeight, HalfScale},
        FitRow{{"HeightAloneIsHalvedAtZintsScale"}, NotGiven, 100, 50, ZintsScale},
        FitRow{{"OddHeightIsHalvedDownward"}, NotGiven, 101, 50, ZintsScale},
        FitRow{{"HeightOfOneLeavesZintsHeight"}, 0, 1, ZintsHeight, ZintsScale},
        FitRow{{"HeightOfTwoIsABarHeightOfOne"}, 0, 2, 1, ZintsScale},
        FitRow{{"GreatestBarHeight"}, NotGiven, 4000, 2000, ZintsScale},
        FitRow{{"WidthOfTheSmallest"}, 145, NotGiven, ZintsHeight, 0.5F},
        FitRow{{"WidthBelowTheSmallestStillGetsIt"}, 20, 0, ZintsHeight, 0.5F},
        FitRow{{"WidthGrowsInWholeSteps"}, 289, NotGiven, ZintsHeight, 0.5F},
        FitRow{{"WidthOfTwoSteps"}, 290, NotGiven, ZintsHeight, 1.0F},
        FitRow{{"WidthOfThreeSteps"}, 500, NotGiven, ZintsHeight, 1.5F},
        FitRow{{"BothDivideTheHeightByTheScale"}, 300, 120, 60, 1.0F},
        FitRow{{"BothAtOneAndAHalf"}, 450, 100, 33, 1.5F},
        FitRow{{"BothAtTheSmallestDoubleTheHeight"}, 145, 60, 60, 0.5F},
        FitRow{{"HeightBelowOneModuleLeavesZintsHeight"}, 600, 1, ZintsHeight, 2.0F}),
    RuleAsName());

// 29 x 29 dots at the smallest scale.
class QrCodeFit : public BarcodeFit {};

TEST_P(QrCodeFit, ChoosesTheScale) {
    expectFit(BARCODE_QRCODE, "https://www.example.org/ticket/471");
}

INSTANTIATE_TEST_SUITE_P(
    BarcodeSize, QrCodeFit,
    testing::Values(FitRow{{"NoBoxKeepsTheSmallest"}, NotGiven, NotGiven, ZintsHeight, HalfScale},
                    FitRow{{"BoxIsLimitedByTheHeight"}, 150, 100, ZintsHeight, 1.5F},
                    FitRow{{"BoxIsLimitedByTheWidth"}, 100, 150, ZintsHeight, 1.5F},
                    FitRow{{"HeightAlone"}, NotGiven, 100, ZintsHeight, 1.5F},
                    FitRow{{"WidthAlone"}, 100, NotGiven, ZintsHeight, 1.5F},
                    FitRow{{"OneDotBelowAStep"}, 57, 57, ZintsHeight, 0.5F},
                    FitRow{{"ExactlyAStep"}, 58, 58, ZintsHeight, 1.0F},
                    FitRow{{"WidthBelowTheSmallestStillGetsIt"}, 5, 500, ZintsHeight, 0.5F},
                    FitRow{{"HeightBelowTheSmallestStillGetsIt"}, 500, 5, ZintsHeight, 0.5F},
                    FitRow{{"HeightAloneBelowTheSmallestStillGetsIt"}, 0, 1, ZintsHeight, 0.5F}),
    RuleAsName());

class BarcodeSize : public testing::Test {
protected:
    int create(int type, const QByteArray& data, int width, int height) {
        return VelnorBarcode().CreateBarcode(type, 0, data.constData(), UNICODE_MODE, "", NoOption,
                                             NoOption, NoOption, &made, width, height);
    }
    QSize size() const { return made.size(); }

    QImage made;
};

TEST_F(BarcodeSize, OfAVariableHeightWithoutTextFillsTheHeightOfItsBox) {
    create(BARCODE_CODE128, "Ticket 4711", 300, 120);
    EXPECT_EQ(size(), QSize(290, 120));
}

TEST_F(BarcodeSize, OfAFixedHeightIgnoresABoxHeightForItsBars) {
    create(BARCODE_ONECODE, "53379777234994544928", 300, 500);
    const QImage alone = made;
    create(BARCODE_ONECODE, "53379777234994544928", 300, NotGiven);
    EXPECT_TRUE(samePicture(made, alone));
}

TEST_F(BarcodeSize, WithTextStandsTallerThanItsBox) {
    VelnorBarcode().CreateBarcode(BARCODE_CODE128, 1, "Ticket 4711", UNICODE_MODE, "", NoOption,
                                  NoOption, NoOption, &made, 300, 120);
    EXPECT_GT(size().height(), 120);
}

// The size of the box is what makes zint refuse the second encoding.
struct RefusedRow : Row {
    int type;
    QByteArray data;
    int width;
    int height;
};

class RefusedFit : public testing::TestWithParam<RefusedRow> {};

TEST_P(RefusedFit, KeepsTheFirstPictureAndSaysSo) {
    const RefusedRow& row = GetParam();
    QImage made;
    EXPECT_EQ(VelnorBarcode().CreateBarcode(row.type, 0, row.data.constData(), UNICODE_MODE, "",
                                            NoOption, NoOption, NoOption, &made, row.width,
                                            row.height),
              -1);
    ZintRequest smallest;
    smallest.type = row.type;
    smallest.data = row.data;
    EXPECT_TRUE(samePicture(made, zintPicture(smallest)));
}

constexpr int Highest = 2147483647;

INSTANTIATE_TEST_SUITE_P(
    BarcodeSize, RefusedFit,
    testing::Values(
        RefusedRow{{"BarsTallerThanZintAllows"}, BARCODE_CODE128, "A", NotGiven, 4002},
        RefusedRow{{"ScaleBeyondZintsLimit"}, BARCODE_QRCODE, "A", 4221, 4221},
        RefusedRow{{"HighestHeight"}, BARCODE_CODE128, "A", NotGiven, Highest},
        RefusedRow{{"HighestWidth"}, BARCODE_CODE128, "A", Highest, NotGiven},
        RefusedRow{{"HighestHeightInANarrowBox"}, BARCODE_CODE128, "A", 1, Highest},
        RefusedRow{{"HighestBox"}, BARCODE_CODE128, "A", Highest, Highest},
        RefusedRow{{"HighestBoxOfAFixedHeight"}, BARCODE_QRCODE, "A", Highest, Highest},
        RefusedRow{{"HighestWidthOfAFixedHeight"}, BARCODE_PDF417, "A", Highest, -1},
        RefusedRow{{"HighestHeightOfAFixedHeight"}, BARCODE_QRCODE, "A", 0, Highest},
        RefusedRow{{"HighestBoxOfASymbolOneDotWide"}, BARCODE_DAFT, "F", Highest, Highest},
        RefusedRow{{"HighestWidthOfASymbolOneDotWide"}, BARCODE_DAFT, "F", Highest, NotGiven},
        RefusedRow{{"HighestBoxOfDots"}, BARCODE_DOTCODE, "123456789012", 1, Highest},
        RefusedRow{{"ThirtyThousand"}, BARCODE_CODE128, "A", 30000, 30000},
        RefusedRow{{"ThirtyThousandOfAFixedHeight"}, BARCODE_QRCODE, "A", 30000, 30000}),
    RuleAsName());

} // namespace
