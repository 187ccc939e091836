#include "render/sheet.h"

#include "render/blank_surface.h"
#include "spare_memory.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

#include <sys/mman.h>

namespace {

using Dot = QRgb;

bool isRoom(const velnor::Margins& margins) {
    return margins.left >= 0 && margins.top >= 0 && margins.right >= 0 && margins.bottom >= 0;
}

int boundedSum(qint64 a, qint64 b, qint64 c) {
    return static_cast<int>(std::min<qint64>(a + b + c, std::numeric_limits<int>::max()));
}

// Whether a surface with its margins is still a size that a surface can have.
bool fits(int width, int height, const velnor::Margins& margins) {
    return isRoom(margins) &&
           velnor::isSurfaceSize(boundedSum(margins.left, width, margins.right),
                                 boundedSum(margins.top, height, margins.bottom));
}

} // namespace

// Straight from the system: it is given page by page as it is touched, and all of it goes back. In
// large pages, where the system has them: handing out small ones takes as long as drawing a ticket.
class velnor::Sheet::Memory {
public:
    explicit Memory(qint64 dots) {
        const size_t needed = static_cast<size_t>(dots) * sizeof(Dot);
        size = needed < SmallestInLargePages ? needed : needed + 2 * LargePage;
        mapped = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (mapped == MAP_FAILED) {
            throw std::bad_alloc();
        }
        void* start = mapped;
        size_t room = size;
        if (size != needed && std::align(LargePage, needed, start, room) != nullptr) {
            madvise(start, room / LargePage * LargePage, MADV_HUGEPAGE);
        }
        first = static_cast<Dot*>(start);
    }
    ~Memory() { munmap(mapped, size); }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    Dot* dots() const { return first; }

private:
    static constexpr size_t LargePage = 2UL * 1024 * 1024;
    static constexpr size_t SmallestInLargePages = LargePage / 2;

    size_t size = 0;
    void* mapped = nullptr;
    Dot* first = nullptr;
};

velnor::Sheet::Sheet(int surfaceWidth, int surfaceHeight, const Margins& wanted) {
    if (!isSurfaceSize(surfaceWidth, surfaceHeight)) {
        return;
    }
    width = surfaceWidth;
    height = surfaceHeight;
    margins = fits(width, height, wanted) ? wanted : Margins();
    const qint64 rows = static_cast<qint64>(margins.top) + height + margins.bottom;
    memory = std::make_shared<Memory>(rows * framedWidth());
    requireMemory(0);
}

QImage velnor::Sheet::surface() const {
    return memory ? view(margins.left, margins.top, width, height) : QImage();
}

void velnor::Sheet::whiten(int rows) {
    if (memory) {
        fillRowsWhite(0, static_cast<qint64>(margins.top) + std::min(rows, height));
    }
}

bool velnor::Sheet::canFrame(const Margins& other, int rows) const {
    return memory && rows >= 1 && rows <= height && margins.left == other.left &&
           margins.top == other.top && margins.right == other.right &&
           margins.bottom == other.bottom;
}

QImage velnor::Sheet::framed(int rows) const {
    const int end = margins.top + rows;
    fillRowsWhite(end, margins.bottom);
    return view(0, 0, framedWidth(), end + margins.bottom);
}

void velnor::Sheet::fillRowsWhite(qint64 first, qint64 count) const {
    std::fill_n(memory->dots() + first * framedWidth(), count * framedWidth(),
                Dot(qRgba(255, 255, 255, 255)));
}

// Keeps the memory for as long as the image lives.
QImage velnor::Sheet::view(int firstColumn, int firstRow, int columns, int rows) const {
    auto owner = std::make_unique<std::shared_ptr<Memory>>(memory);
    Dot* const first = memory->dots() + static_cast<qint64>(firstRow) * framedWidth() + firstColumn;
    QImage image(
        reinterpret_cast<uchar*>(first), columns, rows,
        framedWidth() * static_cast<int>(sizeof(Dot)), QImage::Format_ARGB32_Premultiplied,
        [](void* info) { delete static_cast<std::shared_ptr<Memory>*>(info); }, owner.get());
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    static_cast<void>(owner.release());
    return image;
}
