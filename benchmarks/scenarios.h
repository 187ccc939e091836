// What is measured: documents with their values.
#ifndef VELNOR_BENCHMARKS_SCENARIOS_H
#define VELNOR_BENCHMARKS_SCENARIOS_H

#include <QByteArray>
#include <QString>

#include <memory>
#include <string>
#include <vector>

class VelnorXml;

namespace bench {

struct Scenario {
    std::string name;
    QString document;
    // "name=value", "object.property=value" or "@object.link=value"
    std::vector<QByteArray> values;
};

// The documents that come from code are written into the folder, where they are not there yet.
class Scenarios {
public:
    explicit Scenarios(const QString& folder);

    Scenario generated(const std::string& name, const QByteArray& document) const;
    static Scenario example(const std::string& name);

    // Those that make pictures, which are compared with their golden files.
    std::vector<Scenario> pictures() const;
    static std::vector<Scenario> examples();

    QString file(const QString& name) const { return folder + QLatin1Char('/') + name; }

private:
    void writeOnce(const QString& name, const QByteArray& bytes) const;
    Scenario filledForm() const;
    Scenario photograph() const;

    QString folder;
};

// A handler of the library with the scenario's values set.
class Handler {
public:
    explicit Handler(const Scenario& scenario);
    ~Handler();
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;

    void* get() const { return handle; }
    VelnorXml& object() const { return *static_cast<VelnorXml*>(handle); }

    // Throws std::runtime_error where no picture was written.
    void createImage(const QByteArray& file) const;

private:
    void setValue(const QByteArray& setting) const;

    void* handle;
};

} // namespace bench

#endif
