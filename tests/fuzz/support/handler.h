// A handler that is freed when it goes out of scope.
#ifndef VELNOR_TESTS_FUZZ_HANDLER_H
#define VELNOR_TESTS_FUZZ_HANDLER_H

#include <memory>
#include <string>

namespace fuzz {

struct HandlerDeleter {
    void operator()(void* handler) const;
};
using Handler = std::unique_ptr<void, HandlerDeleter>;

// Of a document in the work folder, with the fonts and the pictures of the tests.
Handler handlerOf(const std::string& document);

// The same with the pictures beside the document.
Handler handlerWithPicturesBeside(const std::string& document);

} // namespace fuzz

#endif
