// How much memory the process has needed at most. Hostile input must not raise it without bounds.
#ifndef VELNOR_TESTS_PEAK_MEMORY_H
#define VELNOR_TESTS_PEAK_MEMORY_H

class PeakMemory {
public:
    PeakMemory();

    // By how many megabytes the peak of resident memory has risen since this was made.
    long risenMegabytes() const;

private:
    long atStart;
};

#endif
