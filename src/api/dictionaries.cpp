#include "velnorxmltoimg.h"

#include "api/call_guard.h"
#include "api/wide_text.h"

using velnor::utf8FromWide;
using velnor::withHandler;

namespace {

constexpr bool Tag = false;
constexpr bool Link = true;

int setObjectTag(void* handler, const char* name, const char* value, bool link) {
    return withHandler(handler, [&](VelnorXml& xml) {
        return xml.SetObjectTagDictionary(name, value, link, false);
    });
}

int setWideObjectTag(void* handler, const unsigned short* name, int nameLength,
                     const unsigned short* value, int valueLength, bool link) {
    return withHandler(handler, [&](VelnorXml& xml) {
        return xml.SetObjectTagDictionary(utf8FromWide(name, nameLength).constData(),
                                          utf8FromWide(value, valueLength).constData(), link,
                                          false);
    });
}

int getObjectTag(void* handler, const char* name, char* out, int size, bool link) {
    return withHandler(
        handler, [&](VelnorXml& xml) { return xml.GetObjectTagDictionary(name, out, size, link); });
}

int getWideObjectTag(void* handler, const unsigned short* name, int length, unsigned short* out,
                     int size, bool link) {
    return withHandler(handler, [&](VelnorXml& xml) {
        if (size < 1) {
            return velnor::Failure;
        }
        // What does not fit is cut, as in a narrow buffer.
        QByteArray scratch = velnor::scratchFor(size);
        const int result = xml.GetObjectTagDictionary(utf8FromWide(name, length).constData(),
                                                      scratch.data(), scratch.size(), link);
        if (result == 0) {
            VelnorXml::FromtUtf8ToUtf16Buffer(scratch.constData(), out, size);
        }
        return result;
    });
}

} // namespace

int xmlToImgClearAllDictionary(void* handler) {
    return withHandler(handler, [](VelnorXml& xml) { return xml.ClearAllDictionary(); });
}

int xmlToImgSetTagDictionary(void* handler, const char* tag, const char* value) {
    return withHandler(handler, [&](VelnorXml& xml) {
        xml.SetTagDictionary(tag, value);
        return velnor::Success;
    });
}

int xmlToImgSetTagDictionaryUnicode(void* handler, const unsigned short* tag, int tagLength,
                                    const unsigned short* value, int valueLength) {
    return withHandler(handler, [&](VelnorXml& xml) {
        xml.SetTagDictionary(utf8FromWide(tag, tagLength).constData(),
                             utf8FromWide(value, valueLength).constData());
        return velnor::Success;
    });
}

int xmlToImgSetObjectTagDictionary(void* handler, const char* name, const char* value) {
    return setObjectTag(handler, name, value, Tag);
}

int xmlToImgSetObjectTagDictionaryUnicode(void* handler, const unsigned short* name, int nameLength,
                                          const unsigned short* value, int valueLength) {
    return setWideObjectTag(handler, name, nameLength, value, valueLength, Tag);
}

int xmlToImgSetObjectLinkDictionary(void* handler, const char* name, const char* value) {
    return setObjectTag(handler, name, value, Link);
}

int xmlToImgSetObjectLinkDictionaryUnicode(void* handler, const unsigned short* name,
                                           int nameLength, const unsigned short* value,
                                           int valueLength) {
    return setWideObjectTag(handler, name, nameLength, value, valueLength, Link);
}

int xmlToImgGetObjectTagDictionary(void* handler, const char* name, char* out, int size) {
    return getObjectTag(handler, name, out, size, Tag);
}

int xmlToImgGetObjectTagDictionaryUnicode(void* handler, const unsigned short* name, int length,
                                          unsigned short* out, int size) {
    return getWideObjectTag(handler, name, length, out, size, Tag);
}

int xmlToImgGetObjectLinkDictionary(void* handler, const char* name, char* out, int size) {
    return getObjectTag(handler, name, out, size, Link);
}

int xmlToImgGetObjectLinkDictionaryUnicode(void* handler, const unsigned short* name, int length,
                                           unsigned short* out, int size) {
    return getWideObjectTag(handler, name, length, out, size, Link);
}
