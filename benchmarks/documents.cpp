#include "documents.h"

#include <QString>
#include <QStringList>

#include <array>

namespace bench {

namespace {

QByteArray document(const QString& canvas, const QStringList& items) {
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<VelnorRoot>\n"
                          "<VelnorItems class=\"canvas\" id=\"canvas\">\n%1\n%2\n"
                          "</VelnorItems>\n</VelnorRoot>\n")
        .arg(canvas, items.join(QLatin1Char('\n')))
        .toUtf8();
}

QString item(const char* kind, int number, const QString& fields) {
    return QStringLiteral("<VelnorItem class=\"%1\" id=\"object%2\">%3</VelnorItem>")
        .arg(QLatin1String(kind), QString::number(number), fields);
}

QString place(int x, int y) {
    return QStringLiteral("<x>%1</x><y>%2</y>").arg(x).arg(y);
}

QString text(int points, const QString& words) {
    return QStringLiteral("<fontname>Liberation Sans</fontname><fontsize>%1</fontsize>"
                          "<text>%2</text>")
        .arg(points)
        .arg(words);
}

QString row(int index) {
    return QStringLiteral("<row>%1</row>").arg(index);
}

QString automaticRows(int count) {
    return QStringLiteral("<RowDefinitions>%1</RowDefinitions>")
        .arg(QStringLiteral("<RowDefinition><height>Auto</height></RowDefinition>\n")
                 .repeated(count));
}

struct Symbology {
    int type;
    const char* data; // %1 makes every symbol another one
    const char* fields;
};

constexpr std::array<Symbology, 20> Symbologies = {{
    {20, "ORDER-4711-%1", "<hrt>1</hrt>"},
    {58, "https://example.org/orders/4711/parcel/%1", ""},
    {71, "PARCEL 4711 %1", "<option3>100</option3>"},
    {55, "Sampleton 4711, Mill Lane 14, parcel %1 of 60", "<option2>4</option2>"},
    {13, "4012345678%1", "<hrt>1</hrt>"},
    {8, "SHELF %1", "<hrt>1</hrt>"},
    {92, "Gate 7, seat %1, Sampleton to Millbrook", ""},
    {3, "1234567890%1", ""},
    {34, "012345678%1", "<hrt>1</hrt>"},
    {57, "Depot %1 of Sampleton", ""},
    {84, "Sampleton 4711 %1", ""},
    {16, "[01]12345678901231[10]LOT%1", "<inputmode>2</inputmode><hrt>1</hrt>"},
    {25, "CODE 93 %1", ""},
    {18, "A1234567%1B", ""},
    {29, "12345678901%1", ""},
    {97, "SEAT %1", ""},
    {72, "12345678901%1", ""},
    {89, "12345678901%1", "<hrt>1</hrt>"},
    {31, "[01]98898765432106[3202]0123%1", "<inputmode>2</inputmode>"},
    {58, "BEGIN:VCARD N:Sample;Alex %1 ORG:Corner Grocery ADR:Market Street 14 END:VCARD",
     "<option1>3</option1>"},
}};

// The finished picture of the metre ends two millimetres below the last line's box.
constexpr int MetreLastLine = 320;
constexpr int TwoMillimetresAt300Dpi = 24;

QByteArray metre(const QString& height) {
    QStringList lines;
    const QStringList words = {QStringLiteral("Corner Grocery"),
                               QStringLiteral("14 March 2026  16:42"), QStringLiteral("Thank you")};
    for (const QString& line : words) {
        const int y = MetreLastLine - 80 - 100 * (words.size() - 1 - lines.size());
        lines << item(
            "text", lines.size(),
            place(40, y) +
                QStringLiteral("<width>752</width><height>80</height><flags>132</flags>") +
                text(14, line));
    }
    return document(QStringLiteral("<width>832</width><dpi>300</dpi>") + height, lines);
}

} // namespace

QByteArray smallDocument() {
    return document(
        QStringLiteral("<width>64</width><height>64</height>"),
        {item("text", 0, text(8, QStringLiteral("a"))),
         item("image", 1,
              QStringLiteral("<filepath>" BENCH_LAYOUTS "/images/stripes.png</filepath>")),
         item("barcode", 2, QStringLiteral("<type>20</type><text>1</text>"))});
}

QByteArray barcodeSheet() {
    constexpr int Columns = 6;
    constexpr int CellWidth = 240;
    constexpr int CellHeight = 230;
    constexpr std::array<int, 3> BoxWidths = {120, 160, 210};
    constexpr std::array<int, 3> BoxHeights = {60, 100, 150};
    QStringList items;
    for (int i = 0; i < BarcodesOnSheet; ++i) {
        const Symbology& symbology = Symbologies[static_cast<size_t>(i) % Symbologies.size()];
        const size_t size = static_cast<size_t>(i) / Symbologies.size();
        items << item(
            "barcode", i,
            place(20 + i % Columns * CellWidth, 20 + i / Columns * CellHeight) +
                QStringLiteral("<width>%1</width><height>%2</height><type>%3</type>%4"
                               "<text>%5</text>")
                    .arg(QString::number(BoxWidths[size]), QString::number(BoxHeights[size]),
                         QString::number(symbology.type), QLatin1String(symbology.fields),
                         QString::fromLatin1(symbology.data).arg(i, 2, 10, QLatin1Char('0'))));
    }
    return document(QStringLiteral("<width>%1</width><height>%2</height><dpi>203</dpi>")
                        .arg(Columns * CellWidth + 20)
                        .arg(BarcodesOnSheet / Columns * CellHeight + 20),
                    items);
}

QByteArray textRoll(int lines) {
    const std::array<const char*, 5> articles = {"Sourdough loaf", "Whole milk", "Eggs", "Apples",
                                                 "Ground coffee"};
    QStringList items;
    for (int i = 0; i < lines; ++i) {
        const QString line =
            QStringLiteral("%1  %2  %3.%4")
                .arg(i + 1, 4, 10, QLatin1Char('0'))
                .arg(QLatin1String(articles[static_cast<size_t>(i) % articles.size()]))
                .arg(i * 7 % 40)
                .arg(i * 13 % 100, 2, 10, QLatin1Char('0'));
        items << item("text", i, row(i) + text(2, line));
    }
    // A metre of roll holds a thousand lines where a line takes no more than a millimetre.
    return document(QStringLiteral("<width>384</width><dpi>600</dpi>") + automaticRows(lines),
                    items);
}

QByteArray photographPage(const char* file) {
    return document(
        QStringLiteral("<width>832</width><height>632</height><dpi>203</dpi>"),
        {item("image", 0,
              place(16, 16) + QStringLiteral("<width>800</width><filepath>%1</filepath>")
                                  .arg(QLatin1String(file)))});
}

QByteArray growingMetre() {
    return metre(QString());
}

QByteArray metreOfGivenHeight() {
    return metre(QStringLiteral("<height>%1</height>").arg(MetreLastLine + TwoMillimetresAt300Dpi));
}

QByteArray form(int placeholders, int objects) {
    constexpr int PlaceholdersInALine = 5;
    constexpr int LineHeight = 28;
    const int lines = placeholders / PlaceholdersInALine;
    QStringList items;
    for (int i = 0; i < objects; ++i) {
        items << item("text", i,
                      place(i % 2 == 0 ? 8 : 200, i / 2 * LineHeight) +
                          text(7, QStringLiteral("empty")));
    }
    for (int i = 0; i < lines; ++i) {
        QStringList words;
        for (int j = 0; j < PlaceholdersInALine; ++j) {
            words << QStringLiteral("%tag%1%").arg(i * PlaceholdersInALine + j);
        }
        items << item("text", objects + i,
                      place(400, i * LineHeight) + text(7, words.join(QLatin1Char(' '))));
    }
    return document(QStringLiteral("<width>832</width><height>%1</height><dpi>203</dpi>")
                        .arg(qMax(lines, objects / 2) * LineHeight),
                    items);
}

QByteArray textField(int texts) {
    constexpr int TextsInALine = 10;
    QStringList items;
    for (int i = 0; i < texts; ++i) {
        items << item("text", i,
                      place(i % TextsInALine * 84, i / TextsInALine * 24) +
                          text(6, QStringLiteral("Item %1").arg(i, 5, 10, QLatin1Char('0'))));
    }
    return document(QStringLiteral("<width>840</width><height>%1</height><dpi>203</dpi>")
                        .arg(texts / TextsInALine * 24),
                    items);
}

QByteArray taggedLines(int lines) {
    constexpr int DifferentTags = 1000;
    QStringList rows;
    for (int i = 0; i < lines; ++i) {
        rows << QStringLiteral("<note>Line %1 of %tag%2% and what follows it</note>")
                    .arg(i)
                    .arg(i % DifferentTags);
    }
    return document(QStringLiteral("<width>100</width><height>100</height>"), rows);
}

QByteArray objectsInARow(int count) {
    QStringList items;
    for (int i = 0; i < count; ++i) {
        items << item("text", i, QStringLiteral("<text link=\"value\">value %1</text>").arg(i));
    }
    return document(QStringLiteral("<width>100</width><height>100</height>"), items);
}

QByteArray nestedObjects(int depth) {
    QString inner;
    for (int i = depth - 1; i >= 0; --i) {
        inner =
            item("text", i, QStringLiteral("<text link=\"value\">value %1</text>").arg(i) + inner);
    }
    return document(QStringLiteral("<width>100</width><height>100</height>"), {inner});
}

QByteArray parameterFile(int values) {
    QString entries;
    for (int i = 0; i < values; ++i) {
        entries += QStringLiteral("<VelnorParam id=\"object%1\"><value>new value %1</value>"
                                  "</VelnorParam>\n")
                       .arg(i);
    }
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<VelnorParams>\n%1"
                          "</VelnorParams>\n")
        .arg(entries)
        .toUtf8();
}

} // namespace bench
