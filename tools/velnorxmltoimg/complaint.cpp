#include "complaint.h"

#include "text.h"

#include <iostream>

void tool::complain(const std::string& message) {
    std::cerr << "velnorxmltoimg: " << printable(message) << std::endl;
}
