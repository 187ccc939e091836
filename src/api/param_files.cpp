#include "velnorxmltoimg.h"

#include "api/call_guard.h"
#include "api/wide_text.h"

#include <cstring>

using velnor::utf8FromWide;
using velnor::withHandler;

int xmlToImgSetDictionaryFromParamFile(void* handler, const char* path) {
    return withHandler(handler, [&](VelnorXml& xml) { return xml.ParseParamsApplyTag(path); });
}

int xmlToImgSetDictionaryFromParamFileUnicode(void* handler, const unsigned short* path,
                                              int length) {
    return withHandler(handler, [&](VelnorXml& xml) {
        return xml.ParseParamsApplyTag(utf8FromWide(path, length).constData());
    });
}

int xmlToImgGetDictionaryFromParamFile(void* handler, const char* path, char* tags, int tagsSize,
                                       char* values, int valuesSize) {
    return withHandler(handler, [&](VelnorXml& xml) {
        xml.ParseParamsGetTagList(path, tags, tagsSize, values, valuesSize);
        // The list is taken as one key. A list that fills its buffer ends without a zero.
        const size_t room = tags == nullptr || tagsSize < 0 ? 0 : static_cast<size_t>(tagsSize);
        const QByteArray key(tags, static_cast<int>(room == 0 ? 0 : strnlen(tags, room)));
        return xml.GetObjectTagDictionary(key.constData(), values, valuesSize, false);
    });
}

int xmlToImgGetDictionaryFromParamFileUnicode(void* handler, const unsigned short* path, int length,
                                              unsigned short* tags, unsigned short* values,
                                              int size) {
    return withHandler(handler, [&](VelnorXml& xml) {
        if (size < 1) {
            return velnor::Failure;
        }
        QByteArray narrowTags = velnor::scratchFor(size);
        QByteArray narrowValues = velnor::scratchFor(size);
        const int result =
            xml.ParseParamsGetTagList(utf8FromWide(path, length).constData(), narrowTags.data(),
                                      narrowTags.size(), narrowValues.data(), narrowValues.size());
        if (result == 0) {
            VelnorXml::FromtUtf8ToUtf16Buffer(narrowTags.constData(), tags, size);
            VelnorXml::FromtUtf8ToUtf16Buffer(narrowValues.constData(), values, size);
        }
        return result;
    });
}
