#include "targets/samples.h"

#include "generator.h"
#include "targets/damage.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace ipsecimpl {

NamedDocument documentIn(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + file);
    return {std::filesystem::path(file).filename().string(), std::string(std::istreambuf_iterator<char>(in), {})};
}

std::vector<NamedDocument> documentsIn(const std::string& folder)
{
    std::vector<std::string> files;
    for (const auto& file : std::filesystem::directory_iterator(folder))
        files.push_back(file.path().string());
    std::sort(files.begin(), files.end());
    std::vector<NamedDocument> documents;
    for (const std::string& file : files)
        documents.push_back(documentIn(file));
    return documents;
}

std::vector<DamagedSample> damagedSamples()
{
    return {
        {documentIn(CORPUS_DIR "/all-elements.xml"), 2000, 1},
        {documentIn(EXAMPLES_DIR "/configs/home-router.xml"), 1000, 2},
        {documentIn(EXAMPLES_DIR "/configs/branch-office.xml"), 300, 3},
        {{"generated", bench::makeDocument(4)}, 1000, 4},
    };
}

void forEachDamaged(const DamagedSample&                                                         sample,
                    const std::function<void(unsigned int number, const std::string& document)>& action)
{
    bench::Random random(sample.seed);
    for (unsigned int number = 0; number < sample.times; ++number)
        action(number, damaged(sample.document.text, random));
}

} // namespace ipsecimpl
