// A picture file is shown by an item. The first byte says how, unless a picture begins with it.
#include "support/drawing.h"
#include "support/handler.h"
#include "support/input.h"
#include "support/layout.h"
#include "support/scratch.h"
#include "support/target.h"

// The readers of pictures are not compiled with counters, so what they made of a file counts.
constexpr int Kinds = 16;
constexpr int OutcomesOfAKind = 128;
__attribute__((section("__libfuzzer_extra_counters")))
std::uint8_t outcomeCounters[Kinds * OutcomesOfAKind];

namespace {

using std::string_view_literals::operator""sv;

constexpr const char* Names[] = {"picture.png", "picture.bmp", "picture.jpg", "picture.gif",
                                 "picture.xpm", "picture.ico", "picture.xbm", "picture@2x"};

constexpr const char* Sizes[] = {
    "",
    "<scalex>50</scalex><scaley>130</scaley>",
    "<width>90</width>",
    "<height>1</height>",
    "<width>80</width><height>41</height><aspect>0</aspect>",
    "<width>80</width><height>41</height><aspect>1</aspect>",
    "<width>40</width><height>80</height><aspect>2</aspect>",
    "<scalex>3000</scalex><scaley>1</scaley>",
};

constexpr const char* Rotations[] = {"", "90", "37", "-180"};

// The first bytes of the kinds of files that are read.
bool beginsPicture(char byte) {
    return "\x89"
           "BGP\xff/#!<\0"sv.find(byte) != std::string_view::npos;
}

void countOutcome(std::string_view file, std::string_view drawn) {
    const int kind = fuzz::numberFrom(file.substr(0, 2), 0, Kinds - 1);
    const int outcome = fuzz::numberFrom(drawn, 0, OutcomesOfAKind - 1);
    outcomeCounters[kind * OutcomesOfAKind + outcome] = 1;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = fuzz::textOf(data, size);
    const bool isPicture = input.empty() || beginsPicture(input.front());
    const unsigned how = isPicture ? 0U : fuzz::takeByte(input);
    const std::string name = Names[how & 7U];
    fuzz::writeFile(name, input);
    fuzz::writeFile("layout.xml",
                    fuzz::layoutOf(128, 96,
                                   "<VelnorItem class='image'><x>9</x><y>9</y>" +
                                       fuzz::element("filepath", name) + Sizes[how >> 3U & 7U] +
                                       fuzz::element("rotation", Rotations[how >> 6U]) +
                                       "</VelnorItem>"));
    const fuzz::Handler handler = fuzz::handlerWithPicturesBeside("layout.xml");
    countOutcome(input, fuzz::drawTwice(handler.get(), "output.bmp", {"layout.xml", name}));
    fuzz::removeFile(name);
    return 0;
}
