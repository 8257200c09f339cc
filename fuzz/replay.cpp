// SPDX-License-Identifier: MIT
//
// Runs a fuzz target without a fuzzer, on files and on mutants of them.
#include "Fuzz.h"
#include <algorithm>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace
{

constexpr const char* USAGE =
    "usage: replay-TARGET [--mutants COUNT] [--seconds LIMIT] [--seed SEED] [--keep FILE] PATH...\n"
    "\n"
    "Runs the target on every file at and below the paths. Then, with --mutants, on so many mutants of these files, "
    "made\n"
    "from the seed, but for no longer than the limit. With --keep every mutant is in FILE while it runs, so that one "
    "that\n"
    "ends the process can be found there.\n";

struct Options
{
    unsigned long mutants = 0;
    unsigned long seconds = 60;
    unsigned long seed = 1;
    std::string keep;
    std::vector<std::string> paths;
};

Options optionsOf(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i)
    {
        const std::string argument = argv[i];
        const auto value = [&]
        {
            if (++i == argc)
                throw std::invalid_argument("no value for " + argument);
            return std::string(argv[i]);
        };
        if (argument == "--mutants")
            options.mutants = std::stoul(value());
        else if (argument == "--seconds")
            options.seconds = std::stoul(value());
        else if (argument == "--seed")
            options.seed = std::stoul(value());
        else if (argument == "--keep")
            options.keep = value();
        else
            options.paths.push_back(argument);
    }
    if (options.paths.empty())
        throw std::invalid_argument("no path");
    return options;
}

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + path.string());
    return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

/// In the order of their names, so that a seed always makes the same mutants.
std::vector<std::filesystem::path> filesAt(const std::vector<std::string>& paths)
{
    std::vector<std::filesystem::path> files;
    for (const std::string& path : paths)
    {
        if (!std::filesystem::is_directory(path))
        {
            files.emplace_back(path);
            continue;
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
        {
            if (entry.is_regular_file())
                files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

void run(const std::string& input)
{
    // A block that ends where the input ends, so that a sanitizer sees every octet that is read behind it.
    const std::unique_ptr<std::uint8_t[]> block(new std::uint8_t[input.size()]);
    std::memcpy(block.get(), input.data(), input.size());
    LLVMFuzzerTestOneInput(block.get(), input.size());
}

/// Changes inputs a little, and mixes them.
class Mutator
{
public:
    Mutator(const std::vector<std::string>& inputs, unsigned long seed)
        : _inputs(inputs),
          _random(seed)
    {
    }

    std::string next()
    {
        std::string mutant = any();
        for (std::size_t changes = 1 + below(4); changes > 0; --changes)
            change(mutant);
        if (mutant.size() > LONGEST)
            mutant.resize(LONGEST);
        return mutant;
    }

private:
    static constexpr std::size_t LONGEST = 8192;

    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(_random); }

    const std::string& any() { return _inputs[below(_inputs.size())]; }

    char interestingOctet()
    {
        static const unsigned char OCTETS[] = {0x00, 0x01, 0x0F, 0x3C, 0x3F, 0x40, 0x7F, 0x80, 0x8F, 0xC0, 0xF0, 0xFF};
        return static_cast<char>(OCTETS[below(sizeof OCTETS)]);
    }

    void change(std::string& mutant)
    {
        const std::size_t at = below(mutant.size() + 1);
        const std::size_t count = std::min(mutant.size() - at, 1 + below(16));
        switch (below(7))
        {
        case 0: // one bit
            if (count > 0)
                mutant[at] = static_cast<char>(mutant[at] ^ (1 << below(8)));
            break;
        case 1: // one octet
            if (count > 0)
                mutant[at] = below(2) != 0 ? interestingOctet() : static_cast<char>(below(256));
            break;
        case 2:
            mutant.erase(at, count);
            break;
        case 3: // a piece of itself
            mutant.insert(below(mutant.size() + 1), std::string(mutant, at, count));
            break;
        case 4:
            mutant.insert(at, 1 + below(4), interestingOctet());
            break;
        case 5: // the beginning of one and the end of another
        {
            const std::string& other = any();
            mutant = mutant.substr(0, at) + other.substr(below(other.size() + 1));
            break;
        }
        default:
            if (below(4) == 0)
                mutant.resize(at);
        }
    }

    const std::vector<std::string>& _inputs;
    std::mt19937_64 _random;
};

/// Runs mutants until there were enough or the time is up, and tells how many there were.
unsigned long runMutants(const std::vector<std::string>& inputs, const Options& options)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds(options.seconds);
    Mutator mutator(inputs, options.seed);
    unsigned long count = 0;
    for (; count < options.mutants && Clock::now() < end; ++count)
    {
        const std::string mutant = mutator.next();
        if (!options.keep.empty())
            std::ofstream(options.keep, std::ios::binary) << mutant;
        run(mutant);
    }
    if (!options.keep.empty())
        std::filesystem::remove(options.keep);
    return count;
}

int replay(const Options& options)
{
    std::vector<std::string> inputs;
    for (const std::filesystem::path& file : filesAt(options.paths))
    {
        inputs.push_back(contentOf(file));
        std::cerr << file.string() << std::endl; // the last one named is the one that ended the process
        run(inputs.back());
    }
    if (inputs.empty())
        throw std::runtime_error("no files to run");
    std::cout << inputs.size() << " files" << std::endl;
    if (options.mutants > 0)
    {
        std::cout << "seed " << options.seed << std::endl;
        const unsigned long count = runMutants(inputs, options);
        std::cout << count << " mutants" << std::endl;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try
    {
        return replay(optionsOf(argc, argv));
    }
    catch (const std::invalid_argument& exception)
    {
        std::cerr << exception.what() << "\n\n" << USAGE;
        return 2;
    }
    catch (const std::exception& exception)
    {
        std::cerr << exception.what() << std::endl;
        return 1;
    }
}
