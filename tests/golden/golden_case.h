// One golden case: a document <root>/cases/<subject>/<case>.xml and the files that belong to it.
#ifndef VELNOR_GOLDEN_GOLDEN_CASE_H
#define VELNOR_GOLDEN_GOLDEN_CASE_H

#include <QString>

namespace golden {

struct GoldenCase {
    static GoldenCase ofDocument(const QString& path);

    QString acceptCommand() const;

    QString name;   // <subject>.<case>
    QString output; // the file name that the library is asked to write
    QString root;   // the folder that holds cases/, images/ and versions.txt
    QString document;
    QString picture; // a case called <name>.bmp has a dithered BMP file; <name>.BMP, .ppm and
                     // .xpm have what these suffixes give, and every other one has a PNG
    // Need not exist. One setting a line, applied in their order: name=value for a placeholder,
    // object.property=value, @object.link=value, params=FILE for a parameter file beside it. Empty
    // lines and lines that begin with # are passed over.
    QString tags;
    QString images;
};

} // namespace golden

#endif
