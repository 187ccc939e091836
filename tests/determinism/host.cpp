// determinism_host ORDER...
//
// Draws documents. Each line of an ORDER is OUTPUT, LAYOUT, IMAGES, FONTS and VALUES, separated by
// tabulators; the last three may be empty. VALUES is a file of lines name=value,
// object.property=value, @object.link=value and params=FILE. One ORDER is drawn document by
// document, each with a handler that is freed before the next one is made. Several are drawn at the
// same time, each on a thread of its own, with handlers that were all made before.
//
// Prints the locale that the environment gave.
#include <velnorxmltoimg.h>

#include <clocale>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Task {
    std::string output;
    std::string layout;
    std::string images;
    std::string fonts;
    std::string values;
};

struct HandlerDeleter {
    void operator()(void* handler) const { xmlToImgFreeHandler(handler); }
};
using Handler = std::unique_ptr<void, HandlerDeleter>;

struct PreparedTask {
    Task task;
    Handler handler;
};

std::vector<Task> readOrder(const char* path) {
    std::ifstream file(path);
    std::vector<Task> tasks;
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        Task task;
        for (std::string* field :
             {&task.output, &task.layout, &task.images, &task.fonts, &task.values}) {
            std::getline(fields, *field, '\t');
        }
        tasks.push_back(task);
    }
    return tasks;
}

void setValue(void* handler, const std::string& name, const std::string& value,
              const std::string& folder) {
    int result = 0;
    if (name == "params") {
        result = xmlToImgSetDictionaryFromParamFile(handler, (folder + '/' + value).c_str());
    } else if (name.front() == '@') {
        result = xmlToImgSetObjectLinkDictionary(handler, name.c_str() + 1, value.c_str());
    } else {
        result = xmlToImgSetObjectTagDictionary(handler, name.c_str(), value.c_str());
    }
    if (result != 0) {
        throw std::runtime_error("cannot set " + name);
    }
}

Handler handlerOf(const Task& task) {
    Handler handler(xmlToImgCreateHandlerWithDirs(task.layout.c_str(), task.images.c_str(),
                                                  task.fonts.c_str()));
    const std::string folder = task.values.substr(0, task.values.rfind('/'));
    std::ifstream values(task.values);
    for (std::string line; std::getline(values, line);) {
        const size_t equals = line.find('=');
        if (!line.empty() && line.front() != '#' && equals != 0 && equals != std::string::npos) {
            setValue(handler.get(), line.substr(0, equals), line.substr(equals + 1), folder);
        }
    }
    return handler;
}

void drawOneAfterTheOther(const std::vector<Task>& tasks) {
    for (const Task& task : tasks) {
        xmlToImgCreateImage(handlerOf(task).get(), task.output.c_str());
    }
}

void drawAtTheSameTime(char** orders, char** end) {
    xmlToImgSetEmbeddedFontKeepFlag(1);
    std::vector<std::vector<PreparedTask>> lists;
    for (; orders != end; ++orders) {
        lists.emplace_back();
        for (const Task& task : readOrder(*orders)) {
            lists.back().push_back({task, handlerOf(task)});
        }
    }
    std::vector<std::thread> threads;
    for (const auto& list : lists) {
        threads.emplace_back([&list] {
            for (const PreparedTask& prepared : list) {
                xmlToImgCreateImage(prepared.handler.get(), prepared.task.output.c_str());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void startLibrary() {
    std::thread(xmlToImgInitializeQtNoReturn).detach();
    while (xmlToImgQtInitialized() != 1) {
        std::this_thread::yield();
    }
}

} // namespace

int main(int argc, char** argv) {
    const char* const locale = std::setlocale(LC_ALL, "");
    std::cout << (locale == nullptr ? "" : locale) << std::flush;
    startLibrary();
    try {
        if (argc == 2) {
            drawOneAfterTheOther(readOrder(argv[1]));
        } else {
            drawAtTheSameTime(argv + 1, argv + argc);
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
