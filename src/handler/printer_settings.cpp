// What a layout tells the printer besides the picture.
#include "document/canvas_element.h"
#include "document/dom_loading.h"
#include "document/dom_values.h"
#include "document/vocabulary.h"
#include "handler/velnorxml.h"

#include <QDomDocument>

#include <array>

namespace {

constexpr int NotGiven = -1;
constexpr int Eject = 0;
constexpr int Retract = 1;

// The text of a property of the canvas; a null text when it has none.
QString canvasProperty(VelnorXml& handler, const QString& classId, const velnor::Word& word) {
    const QByteArray key = classId.toUtf8() + '.' + word.element;
    std::array<char, 1024> value{};
    const int result = handler.GetObjectTagDictionary(key.constData(), value.data(),
                                                      static_cast<int>(value.size()), false);
    return result == 0 ? QString::fromUtf8(value.data()) : QString();
}

} // namespace

QString VelnorXml::GetClassId() const {
    QDomDocument document(QStringLiteral("mydocument"));
    if (!velnor::loadXml(document, ReadXmlApplyTags())) {
        return {};
    }
    const QDomElement itemList = velnor::firstItemList(document);
    if (itemList.isNull()) {
        return {};
    }
    const QString none = QLatin1String("");
    return velnor::isCanvas(itemList) ? itemList.attribute(QStringLiteral("id"), none) : none;
}

int VelnorXml::GetEjectRetractValue(const QString& text, int fallback) {
    const QString word = text.toLower().trimmed();
    if (word == QLatin1String("eject")) {
        return Eject;
    }
    return word == QLatin1String("retract") ? Retract : fallback;
}

int VelnorXml::GetPrinterSettings(int* presentation, int* ejectRetract, int* timeout) {
    const QString id = GetClassId();
    const auto valueOf = [&](const velnor::Word& word) { return canvasProperty(*this, id, word); };
    *presentation = velnor::integerOr(valueOf(velnor::PresentationWord), NotGiven);
    *ejectRetract = GetEjectRetractValue(valueOf(velnor::EjectRetractWord), NotGiven);
    *timeout = velnor::integerOr(valueOf(velnor::EjectRetractTimeoutWord), NotGiven);
    return 0;
}
