/* small_host DOCUMENT OUTPUT: starts the library, renders the document to the output file, and
 * returns from main while the library's event loop runs. */
#include <velnorxmltoimg.h>

#include <pthread.h>
#include <time.h>

static void* runApplication(void* unused) {
    (void)unused;
    xmlToImgInitializeQtNoReturn();
    return NULL;
}

int main(int count, char** arguments) {
    pthread_t thread;
    if (count != 3 || pthread_create(&thread, NULL, runApplication, NULL) != 0) {
        return 1;
    }
    while (xmlToImgQtInitialized() == 0) {
        const struct timespec pause = {0, 1000000};
        nanosleep(&pause, NULL);
    }
    void* handler = xmlToImgCreateHandler(arguments[1]);
    const int drawn = xmlToImgCreateImage(handler, arguments[2]);
    const int freed = xmlToImgFreeHandler(handler);
    return drawn == 0 && freed == 0 ? 0 : 1;
}
