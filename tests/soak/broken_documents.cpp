// Documents that make no picture, and some that make one without what they ask for.
#include "documents.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace soak {

namespace {

constexpr int TooDeep = 300;
constexpr int Entities = 30;
constexpr int MoreThanAnySymbolHolds = 9000;

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

std::string withCanvas(const std::string& size, const std::string& items) {
    return "<VelnorRoot><VelnorItems class='canvas' id='page'>" + size + items +
           "</VelnorItems></VelnorRoot>";
}

std::string smallPage(const std::string& items) {
    return withCanvas("<width>120</width><height>60</height>", items);
}

std::string barcode(int type, const std::string& data) {
    return "<VelnorItem class='barcode' id='code'><x>5</x><y>5</y><width>50</width>"
           "<height>40</height><type>" +
           std::to_string(type) + "</type><text>" + data + "</text></VelnorItem>";
}

std::string picture(const std::string& file) {
    return "<VelnorItem class='image' id='logo'><x>60</x><y>5</y><filepath>" + file +
           "</filepath></VelnorItem>";
}

std::string halfOf(const std::string& path) {
    std::ifstream file(path);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    return text.substr(0, text.size() / 2);
}

// Entities that expand to ten times the one before.
std::string growingEntities() {
    std::string text = "<!DOCTYPE VelnorRoot [<!ENTITY e0 'x'>";
    for (int i = 1; i < Entities; ++i) {
        const std::string before = "&e" + std::to_string(i - 1) + ';';
        text += "<!ENTITY e" + std::to_string(i) + " '" + repeated(before, 10) + "'>";
    }
    return text + "]><VelnorRoot>&e" + std::to_string(Entities - 1) + ";</VelnorRoot>";
}

class Writer {
public:
    explicit Writer(std::string intoFolder) : folder(std::move(intoFolder)) {}

    void write(const std::string& name, const std::string& text, bool makesPicture) {
        const std::string path = folder + '/' + name;
        std::ofstream file(path);
        file << text;
        if (!file.flush()) {
            throw std::runtime_error("cannot write " + path);
        }
        add(path, makesPicture);
    }

    void add(const std::string& path, bool makesPicture) {
        documents.push_back({path,
                             VELNOR_GOLDEN_IMAGES,
                             VELNOR_TEST_FONTS,
                             "",
                             {"page", "code", "logo"},
                             makesPicture});
    }

    std::vector<Document> documents;

private:
    std::string folder;
};

} // namespace

std::vector<Document> writeBrokenDocuments(const std::string& folder) {
    Writer writer(folder);
    writer.add(folder + "/missing.xml", false);
    writer.add(folder, false);
    writer.write("empty.xml", "", false);
    writer.write("bytes.xml",
                 std::string("\x7f"
                             "ELF\0\1\2\xff\xfe",
                             9),
                 false);
    writer.write("cut_short.xml", halfOf(VELNOR_EXAMPLE_LAYOUTS "/receipt.xml"), false);
    writer.write("deep.xml", repeated("<a>", TooDeep) + repeated("</a>", TooDeep), false);
    writer.write("entities.xml", growingEntities(), false);
    writer.write("endless.xml", withCanvas("<width>900000</width><height>900000</height>", ""),
                 false);
    // Letters in an EAN-13, an unknown symbology, a QR code of too many characters.
    writer.write("barcodes.xml",
                 smallPage(barcode(13, "letters") + barcode(9999, "1") +
                           barcode(58, std::string(MoreThanAnySymbolHolds, 'x'))),
                 true);
    writer.write("pictures.xml",
                 smallPage(picture("missing.png") + picture("garbage.png") + picture("empty.png")),
                 true);
    return writer.documents;
}

} // namespace soak
