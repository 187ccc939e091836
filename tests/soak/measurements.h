// What the process holds at one moment.
#ifndef VELNOR_TESTS_SOAK_MEASUREMENTS_H
#define VELNOR_TESTS_SOAK_MEASUREMENTS_H

namespace soak {

struct Measurement {
    long images = 0;      // drawn so far
    long resident = 0;    // KiB, with files that are mapped and what malloc keeps for later
    long anonymous = 0;   // KiB of it that belong to no file and that malloc cannot give back
    long held = 0;        // KiB that were taken from malloc and not freed
    long descriptors = 0; // open, without those of the threads of Qt's pool
    long threads = 0;     // likewise
    long files = 0;       // left behind in the folders of this process
};

// Of everything but images and files. Gives back to the system what malloc keeps: how much that is
// depends on the largest pictures so far and on their order, up to 64 MiB and more.
Measurement measureProcess();

} // namespace soak

#endif
