// Plans in files: what one program has worked out, another one paints.
#include "plan.h"

#include <QDataStream>
#include <QFile>

namespace bench {

namespace {

constexpr quint32 PlanMark = 0x504c414e;

// Which alternative of a step follows.
using StepKind = quint32;

QDataStream& operator<<(QDataStream& out, const TextStep& step) {
    return out << step.text << step.font << step.box << step.flags << step.transform;
}

QDataStream& operator>>(QDataStream& in, TextStep& step) {
    return in >> step.text >> step.font >> step.box >> step.flags >> step.transform;
}

QDataStream& operator<<(QDataStream& out, const PictureStep& step) {
    return out << step.file << step.kept << step.position << step.transform;
}

QDataStream& operator>>(QDataStream& in, PictureStep& step) {
    return in >> step.file >> step.kept >> step.position >> step.transform;
}

QDataStream& operator<<(QDataStream& out, const BarcodeStep& step) {
    out << step.symbology << step.inputMode << step.showText << step.height << step.scale;
    for (const int option : step.options) {
        out << option;
    }
    return out << step.primary << step.data << step.position << step.transform;
}

QDataStream& operator>>(QDataStream& in, BarcodeStep& step) {
    in >> step.symbology >> step.inputMode >> step.showText >> step.height >> step.scale;
    for (int& option : step.options) {
        in >> option;
    }
    return in >> step.primary >> step.data >> step.position >> step.transform;
}

QDataStream& operator<<(QDataStream& out, const ShapeStep& step) {
    return out << step.kind << step.box << step.radius << step.line << step.pen << step.antialiased
               << step.transform;
}

QDataStream& operator>>(QDataStream& in, ShapeStep& step) {
    return in >> step.kind >> step.box >> step.radius >> step.line >> step.pen >>
           step.antialiased >> step.transform;
}

template <typename Kind>
Step readStep(QDataStream& in) {
    Kind step;
    in >> step;
    return step;
}

bool appendStep(QDataStream& in, std::vector<Step>& steps) {
    using Reader = Step (*)(QDataStream&);
    constexpr std::array<Reader, std::variant_size_v<Step>> Readers = {
        readStep<TextStep>, readStep<PictureStep>, readStep<BarcodeStep>, readStep<ShapeStep>};
    StepKind kind = 0;
    in >> kind;
    if (in.status() != QDataStream::Ok || kind >= Readers.size()) {
        return false;
    }
    steps.push_back(Readers[kind](in));
    return in.status() == QDataStream::Ok;
}

} // namespace

bool writePlan(const QString& file, const Plan& plan) {
    QFile device(file);
    if (!device.open(QIODevice::WriteOnly)) {
        return false;
    }
    QDataStream out(&device);
    out.setFloatingPointPrecision(QDataStream::DoublePrecision);
    out << PlanMark << plan.size << plan.margins << plan.dotsPerMetre
        << static_cast<quint32>(plan.steps.size());
    for (const Step& step : plan.steps) {
        out << static_cast<StepKind>(step.index());
        std::visit([&out](const auto& record) { out << record; }, step);
    }
    return out.status() == QDataStream::Ok && device.flush();
}

bool readPlan(const QString& file, Plan& plan) {
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly)) {
        return false;
    }
    QDataStream in(&device);
    in.setFloatingPointPrecision(QDataStream::DoublePrecision);
    quint32 mark = 0;
    quint32 count = 0;
    in >> mark >> plan.size >> plan.margins >> plan.dotsPerMetre >> count;
    if (in.status() != QDataStream::Ok || mark != PlanMark) {
        return false;
    }
    plan.steps.clear();
    plan.steps.reserve(count);
    while (plan.steps.size() < count) {
        if (!appendStep(in, plan.steps)) {
            return false;
        }
    }
    return true;
}

} // namespace bench
