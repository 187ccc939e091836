#include "render/png_encoding.h"

#include "render/png_filters.h"

#include <png.h>

#include <csetjmp>
#include <new>

namespace {

constexpr int BitsPerChannel = 8;

// Where libpng writes to. It cannot be left by an exception.
struct Output {
    QByteArray bytes;
    bool isOutOfMemory = false;

    bool append(const png_byte* data, size_t length) noexcept {
        try {
            bytes.append(reinterpret_cast<const char*>(data), static_cast<int>(length));
        } catch (const std::bad_alloc&) {
            isOutOfMemory = true;
        }
        return !isOutOfMemory;
    }
};

void fail(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

void ignoreWarning(png_structp, png_const_charp) {}

void write(png_structp png, png_bytep data, size_t length) {
    if (!static_cast<Output*>(png_get_io_ptr(png))->append(data, length)) {
        png_error(png, "out of memory");
    }
}

void flush(png_structp) {}

class Encoder {
public:
    explicit Encoder(Output& output)
        : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignoreWarning)),
          info(png == nullptr ? nullptr : png_create_info_struct(png)) {
        if (info == nullptr) {
            png_destroy_write_struct(&png, nullptr);
            throw std::bad_alloc();
        }
        png_set_write_fn(png, &output, write, flush);
    }
    ~Encoder() { png_destroy_write_struct(&png, &info); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    // libpng leaves by a jump: nothing in here, or in what it calls, has a destructor.
    bool encode(const QImage& picture) {
        if (setjmp(png_jmpbuf(png)) != 0) {
            return false;
        }
        writeHeader(picture);
        for (int y = 0; y < picture.height(); ++y) {
            // libpng makes its room for filters at the first row, which shows it that there are
            // all of them.
            if (y > 0) {
                png_set_filter(png, PNG_FILTER_TYPE_BASE, filterOf(picture, y));
            }
            png_write_row(png, picture.constScanLine(y));
        }
        png_write_end(png, info);
        return true;
    }

private:
    void writeHeader(const QImage& picture) {
        png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width()),
                     static_cast<png_uint_32>(picture.height()), BitsPerChannel,
                     PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                     PNG_FILTER_TYPE_DEFAULT);
        if (picture.dotsPerMeterX() > 0 || picture.dotsPerMeterY() > 0) {
            png_set_pHYs(png, info, static_cast<png_uint_32>(picture.dotsPerMeterX()),
                         static_cast<png_uint_32>(picture.dotsPerMeterY()), PNG_RESOLUTION_METER);
        }
        png_write_info(png, info);
        if (QSysInfo::ByteOrder == QSysInfo::LittleEndian) {
            png_set_bgr(png);
        } else {
            png_set_swap_alpha(png);
        }
    }

    // The order of the channels makes no difference to the choice.
    static int filterOf(const QImage& picture, int y) {
        const velnor::PngFilter chosen = velnor::choosePngFilter(
            picture.constScanLine(y), picture.constScanLine(y - 1), picture.width());
        return PNG_FILTER_NONE << static_cast<int>(chosen);
    }

    png_structp png;
    png_infop info;
};

} // namespace

QByteArray velnor::encodePng(const QImage& picture) {
    Output output;
    const bool isComplete = Encoder(output).encode(picture);
    if (output.isOutOfMemory) {
        throw std::bad_alloc();
    }
    return isComplete ? output.bytes : QByteArray();
}
