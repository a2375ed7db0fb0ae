#include "app/Platform.h"
#include "app/Program.h"

int main(int argc, char** argv) {
    VORN::prepareStreams();
    const std::vector<std::string> words = VORN::commandLine(argc, argv);
    std::vector<const char*> texts;
    texts.reserve(words.size());
    for (const std::string& word : words)
        texts.push_back(word.c_str());
    return VORN::runProgram(static_cast<int>(texts.size()), texts.data());
}
