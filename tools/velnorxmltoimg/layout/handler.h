// A handler of the library with an owner.
#ifndef VELNOR_TOOL_HANDLER_H
#define VELNOR_TOOL_HANDLER_H

#include <memory>
#include <string>

namespace tool {

struct HandlerDeleter {
    void operator()(void* handler) const;
};
using Handler = std::unique_ptr<void, HandlerDeleter>;

// The folders may be empty, for those beside the document.
Handler createHandler(const std::string& document, const std::string& images,
                      const std::string& fonts);

} // namespace tool

#endif
