// One thread of a host: makes handlers, fills them, draws, asks, keeps some of them for a while.
#ifndef VELNOR_TESTS_SOAK_WORKER_H
#define VELNOR_TESTS_SOAK_WORKER_H

#include "documents.h"
#include "library.h"
#include "random.h"

#include <shared_mutex>
#include <string>
#include <vector>

namespace soak {

// What all threads of the host have in common.
struct Host {
    const Documents& documents;
    std::string outputFolder;
    // Handlers are made and freed alone, as the header asks.
    std::shared_mutex handlers;
    bool keepsFonts = false;
};

// Unregisters all fonts, then keeps those to come or not.
void switchKeeping(Host& host, bool keep);

class Worker {
public:
    // Files of workers with another name are other files.
    Worker(Host& sharedHost, std::uint32_t seed, std::string workerName);
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // Each example as a PNG file.
    void drawExamples();
    // Stops at the first call that did not do what it had to, and throws std::runtime_error.
    void draw(long images);

private:
    struct Output {
        const char* suffix;
        bool isWritten;
    };
    struct Job {
        const Document* document;
        Handler handler;
    };

    Job makeJob();
    const Document& chooseDocument();
    Handler makeHandler(const Document& document);
    Job& chooseJob();
    void freeJob(size_t place);
    long work(Job& job, long mostImages);
    void fill(Job& job);
    void changeSomething(Job& job);
    void drawAs(const Output& output, Job& job);

    static const Output outputs[];

    Host& host;
    Random random;
    std::string name;
    std::vector<Job> jobs; // those that were kept
};

} // namespace soak

#endif
