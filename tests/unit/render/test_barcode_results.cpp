#include "document/codes.h"
#include "render/velnorbarcode.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/scratch_folder.h"
#include "support/zint_pictures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <thread>

namespace {

constexpr int NoOption = velnor::BarcodeOptionNotGiven;

int createCode128(const QByteArray& path, int width = -1, int height = -1) {
    return VelnorBarcode().CreateBarcode(BARCODE_CODE128, 0, "Ticket 4711", UNICODE_MODE, "",
                                         NoOption, NoOption, NoOption, path.constData(), width,
                                         height);
}

struct ResultRow : Row {
    int type;
    QByteArray data;
    int option1;
    int zintResult;
    int expected;
};

class BarcodeResult : public testing::TestWithParam<ResultRow> {};

TEST_P(BarcodeResult, IsSuccessWhereTheSymbolIsComplete) {
    const ResultRow& row = GetParam();
    ZintRequest request;
    request.type = row.type;
    request.data = row.data;
    request.option1 = row.option1 == NoOption ? request.option1 : row.option1;
    ASSERT_EQ(zintResult(request), row.zintResult);

    const ScratchFolder folder;
    const QString path = folder.path(QStringLiteral("symbol.PNG"));
    EXPECT_EQ(VelnorBarcode().CreateBarcode(row.type, 0, row.data.constData(), UNICODE_MODE,
                                            nullptr, row.option1, NoOption, NoOption,
                                            path.toUtf8().constData(), -1, -1),
              row.expected);
    if (row.expected == 0) {
        EXPECT_TRUE(samePicture(QImage(path), zintPicture(request)));
    } else {
        EXPECT_EQ(folder.files(), QStringList());
    }
}

const QByteArray BadChecksum = "[01]12345678901234";

INSTANTIATE_TEST_SUITE_P(
    BarcodeResults, BarcodeResult,
    testing::Values(
        ResultRow{{"Encoded"}, BARCODE_CODE128, "A", NoOption, 0, 0},
        ResultRow{{"CharacterSetSwitchInserted"},
                  BARCODE_QRCODE,
                  "\xe2\x82\xac",
                  NoOption,
                  ZINT_WARN_USES_ECI,
                  0},
        ResultRow{{"CyrillicBesideTheStandard"},
                  BARCODE_QRCODE,
                  "\xd0\x96",
                  NoOption,
                  ZINT_WARN_NONCOMPLIANT,
                  0},
        ResultRow{{"ChecksumBesideTheStandard"},
                  BARCODE_GS1_128,
                  BadChecksum,
                  NoOption,
                  ZINT_WARN_NONCOMPLIANT,
                  0},
        ResultRow{{"InvalidOption"}, BARCODE_PDF417, "A", 99, ZINT_WARN_INVALID_OPTION, -1},
        ResultRow{{"DataTooLong"},
                  BARCODE_CODE128,
                  QByteArray(200, 'A'),
                  NoOption,
                  ZINT_ERROR_TOO_LONG,
                  -1},
        ResultRow{{"LettersInANumber"}, BARCODE_EANX, "12A", NoOption, ZINT_ERROR_INVALID_DATA, -1},
        ResultRow{{"WrongCheckDigit"},
                  BARCODE_ISBNX,
                  "9780123456780",
                  NoOption,
                  ZINT_ERROR_INVALID_CHECK,
                  -1},
        ResultRow{{"NoData"}, BARCODE_CODE128, "", NoOption, ZINT_ERROR_INVALID_DATA, -1},
        ResultRow{{"EuroOutsideTheSymbologysSet"},
                  BARCODE_CODE128,
                  "\xe2\x82\xac",
                  NoOption,
                  ZINT_ERROR_INVALID_DATA,
                  -1},
        ResultRow{{"TypeZero"}, 0, "A", NoOption, ZINT_WARN_INVALID_OPTION, -1},
        ResultRow{{"NegativeType"}, -1, "A", NoOption, ZINT_WARN_INVALID_OPTION, -1},
        ResultRow{{"TypeFarBeyondTheLast"}, 99999, "A", NoOption, ZINT_WARN_INVALID_OPTION, -1},
        ResultRow{{"TypeThatZintKnowsBeyondThoseThatValidationAccepts"}, 143, "A", NoOption, 0, 0}),
    RuleAsName());

class BarcodeFile : public testing::Test {
protected:
    QByteArray utf8() const { return path().toUtf8(); }
    QString path() const { return folder.path(QStringLiteral("symbol.PNG")); }
    void expectSymbolAt(const QString& file) const {
        EXPECT_TRUE(samePicture(QImage(file), zintPicture(ZintRequest())));
    }

    ScratchFolder folder;
};

TEST_F(BarcodeFile, ReplacesAnOldFile) {
    folder.write(QStringLiteral("symbol.PNG"), QByteArray(100000, 'x'));
    EXPECT_EQ(createCode128(utf8()), 0);
    expectSymbolAt(path());
}

TEST_F(BarcodeFile, IsNeverWrittenThroughALinkPlantedBefore) {
    const QString victim = folder.write(QStringLiteral("victim"), "precious");
    ASSERT_TRUE(QFile::link(victim, path()));
    EXPECT_EQ(createCode128(utf8(), 400, 200), 0);
    QFile file(victim);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), "precious");
    EXPECT_FALSE(QFileInfo(path()).isSymLink());
}

TEST_F(BarcodeFile, IsNeverMadeBehindALinkToNothing) {
    ASSERT_TRUE(QFile::link(folder.path(QStringLiteral("elsewhere")), path()));
    EXPECT_EQ(createCode128(utf8()), 0);
    EXPECT_FALSE(QFile::exists(folder.path(QStringLiteral("elsewhere"))));
    expectSymbolAt(path());
}

// Somebody who watches plants the link again whenever it was removed.
TEST_F(BarcodeFile, IsNeverWrittenThroughALinkPlantedAtTheLastMoment) {
    constexpr int Attempts = 500;
    const QString victim = folder.write(QStringLiteral("victim"), "precious");
    const QByteArray victimPath = QFile::encodeName(victim);
    const QByteArray linkPath = QFile::encodeName(path());
    std::atomic<bool> planting{true};
    std::thread planter([&] {
        while (planting) {
            static_cast<void>(symlink(victimPath.constData(), linkPath.constData()) == 0);
        }
    });
    for (int i = 0; i < Attempts; ++i) {
        createCode128(utf8());
    }
    planting = false;
    planter.join();
    QFile file(victim);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), "precious");
}

TEST_F(BarcodeFile, IsNotWaitedForWhereAPipeWasPlanted) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path()).constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(createCode128(utf8()), 0);
    expectSymbolAt(path());
}

TEST_F(BarcodeFile, IsRefusedWhereADirectoryStands) {
    ASSERT_TRUE(QDir().mkpath(path()));
    const QtMessages messages;
    EXPECT_EQ(createCode128(utf8()), -1);
    EXPECT_TRUE(QFileInfo(path()).isDir());
    EXPECT_EQ(messages.heard(), "");
}

TEST_F(BarcodeFile, IsRefusedInAFolderThatDoesNotExist) {
    const QtMessages messages;
    EXPECT_EQ(createCode128(folder.utf8Path(QStringLiteral("none/symbol.PNG"))), -1);
    EXPECT_EQ(messages.heard(), "");
}

TEST_F(BarcodeFile, IsRefusedInAFolderThatNobodyCanWriteTo) {
    const QtMessages messages;
    EXPECT_EQ(createCode128("/proc/symbol.PNG"), -1);
    EXPECT_EQ(messages.heard(), "");
}

// zint's own buffer for a path holds 255 bytes: what is cut there is another file.
TEST_F(BarcodeFile, OfAVeryLongPathIsWrittenThereAndNowhereElse) {
    QString longFolder;
    while (longFolder.size() < 600) {
        longFolder += QString(100, QLatin1Char('d')) + QLatin1Char('/');
    }
    ASSERT_TRUE(QDir().mkpath(folder.path(longFolder)));
    const QString file = folder.path(longFolder + QLatin1String("symbol.PNG"));
    EXPECT_EQ(createCode128(file.toUtf8(), 300, 100), 0);
    EXPECT_FALSE(QImage(file).isNull());
    EXPECT_EQ(folder.files(), QStringList());
}

TEST_F(BarcodeFile, OfANameInUtf8IsWrittenThere) {
    const QString file = folder.path(QStringLiteral("\u00fc.PNG"));
    EXPECT_EQ(createCode128(file.toUtf8()), 0);
    EXPECT_TRUE(QFile::exists(file));
}

} // namespace
