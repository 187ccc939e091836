#include "complaint.h"

#include <algorithm>
#include <iostream>

void tool::complain(std::string message) {
    const auto endsLine = [](char character) { return character == '\n' || character == '\r'; };
    std::replace_if(message.begin(), message.end(), endsLine, ' ');
    std::cerr << "velnorxmltoimg: " << message << std::endl;
}
