// The handler of one layout document: its paths, its dictionaries and the operations on them.
// One class, several subjects: each group names the file that defines its members.
#ifndef VELNOR_HANDLER_VELNORXML_H
#define VELNOR_HANDLER_VELNORXML_H

#include "handler/font_item.h"
#include "tags/dictionary_item.h"

#include <QList>
#include <QString>

class QDomDocument;
class QDomElement;
class QDomNode;
class QFontDatabase;
class VelnorDrawableCanvas;
class VelnorDrawableElement;

namespace velnor {
struct LinkedDocument;
}

#define VELNOR_EXPORTED __attribute__((visibility("default")))

class VelnorXml {
public:
    // handler/lifecycle.cpp
    VelnorXml(const char* documentFile, const char* imageDir, const char* fontDir);
    ~VelnorXml();
    VelnorXml(const VelnorXml&) = delete;
    VelnorXml& operator=(const VelnorXml&) = delete;

    // handler/embedded_fonts.cpp
    void addEmbeddedFonts();
    static void removeEmbeddedFonts();
    // The application that the fonts were registered with has ended, and they with it.
    static void forgetEmbeddedFonts();

    // api/exported_variables.cpp
    VELNOR_EXPORTED static bool embeddedFontKeepFlag;
    VELNOR_EXPORTED static QList<FontItem*>* embeddedFontIdList;

    // handler/validation.cpp: 0 when nothing was found, -1 otherwise
    static int CheckIsCorrect(const VelnorDrawableCanvas* canvas, char* buffer, int size);
    static void writeInfo(char* buffer, int size, int* remaining, const QString& text);

    // handler/printer_settings.cpp
    int GetPrinterSettings(int* presentation, int* ejectRetract, int* timeout);
    QString GetClassId() const;
    static int GetEjectRetractValue(const QString& text, int fallback);

    // handler/font_queries.cpp
    static int GetFontProperty(const QString& family, int* bold, int* italic);
    static bool fontFamilyIsAvailable(const QFontDatabase* database, const QString& family);
    static bool fontFamilyIsBold(const QFontDatabase* database, const QString& family);
    static bool fontFamilyIsItalic(const QFontDatabase* database, const QString& family);

    // document/parser.cpp: 0 when the document was read, 1 on failure. The caller owns the canvas,
    // which is null for a document whose first item list is no canvas.
    int Parse(VelnorDrawableCanvas** out);

    // document/placement.cpp
    static bool parseCommonTagNam(VelnorDrawableElement* element, const QDomElement& child);
    static int GetHAnchorValue(const QString& text, int fallback);
    static int GetVAnchorValue(const QString& text, int fallback);
    static bool parseMargin(const QString& text, int* left, int* top, int* right, int* bottom);
    static void FixDrawableFields(VelnorDrawableElement* element,
                                  const VelnorDrawableCanvas* canvas);

    // document/grid_definitions.cpp
    static void parseRowDefinitions(const QDomElement& definitions, VelnorDrawableCanvas* canvas);
    static void parseColumnDefinitions(const QDomElement& definitions,
                                       VelnorDrawableCanvas* canvas);
    static int FixCanvasRow(VelnorDrawableCanvas* canvas);
    static int FixCanvasColumn(VelnorDrawableCanvas* canvas);

    // tags/tag_dictionary.cpp
    void SetTagDictionary(const char* key, const char* value);
    int ClearAllDictionary();
    QString ReadXmlApplyTags() const;

    // tags/object_tags.cpp: 0 success, 1 failure
    int SetObjectTagDictionary(const char* key, const char* value, bool link, bool keepUnresolved);
    int GetObjectTagDictionary(const char* key, char* buffer, int size, bool link);
    int GetObjectTagDictionaryGeneric(const char* key, char* buffer, int size, bool link,
                                      QString& resolvedKey);
    int applyObjectTagsToXmlDoc(QDomDocument& doc) const;
    // As SetObjectTagDictionary for each pair as a link, kept where it is not found, with the
    // document read only when its file has changed.
    void setLinkedValues(const QList<DictionaryItem>& pairs);
    void setLinkedValue(velnor::LinkedDocument& document, const DictionaryItem& pair);

    // tags/object_lookup.cpp
    int GetValueFromObject(const QString& key, QString& value, QString& resolvedKey, bool link,
                           bool reload);
    bool loadWorkDocument(QDomDocument& document, bool reload);
    static int findValue(const QDomDocument& document, const QString& key, QString& value,
                         QString& resolvedKey, bool link);
    static QDomNode matchAttrInRootElement(const QDomElement& parent, const QString& attribute,
                                           const QString& value);
    static QDomNode matchIDInRootElement(const QDomElement& parent, const QString& value);
    static QDomNode matchLinkInRootElement(const QDomElement& parent, const QString& value);

    // tags/param_files.cpp: 0 success, 1 failure
    int ParseParamsApplyTagGeneric(const char* file, QList<DictionaryItem>* out);
    int ParseParamsApplyTag(const char* file);
    int ParseParamsGetTagList(const char* file, char* keys, int keysSize, char* values,
                              int valuesSize);

    // tags/file_paths.cpp
    QString FixAbsRelFilePath(const QString& path) const;
    QString GetImageFilePath(const QString& path) const;

    // api/wide_text.cpp
    static void FromtUtf8ToUtf16Buffer(const char* source, unsigned short* destination, int n);

    const QList<DictionaryItem>& tags() const { return tagDictionary; }
    const QList<DictionaryItem>& objectTags() const { return objectTagDictionary; }
    const QString& documentFile() const { return documentPath; }
    const QString& imageDir() const { return imageDirectory; }
    const QString& fontDir() const { return fontDirectory; }
    bool isWorkTextValid() const { return workTextValid; }

private:
    void loadLinkedDocument(velnor::LinkedDocument& document);

    QList<DictionaryItem> tagDictionary;
    QList<DictionaryItem> objectTagDictionary;
    QString documentPath;
    QString imageDirectory;
    QString fontDirectory;
    QString workText; // the substituted document, kept between reads of object tags
    bool workTextValid = false;
};

#endif
