#include "files/Extensions.h"
#include "service/Text.h"

#include <mrlio/FileIdentifiers.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string_view>
#include <system_error>

namespace Kvt::Mrl::MrlIO {
namespace {

constexpr int noIndex = -1;

/// True if a number of so many digits may follow the letter. The last letter of a kind takes all steps that are left,
/// so its numbers may grow.
bool isDigitCountAllowed(std::size_t digitCount, char letter, std::string_view letters)
{
    return digitCount == 2 || digitCount == 4 || (digitCount > 4 && letter == letters.back());
}

int indexOf(char letter, std::string_view digits, std::string_view letters)
{
    std::int64_t number = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc())
        return noIndex;
    constexpr std::int64_t largest = std::numeric_limits<int>::max();
    const std::int64_t perLetter = digits.size() == 2 ? 100 : 10000;
    const std::int64_t begin = (letter - letters.front()) * perLetter;
    return number <= largest - std::max<std::int64_t>(begin, 0) ? static_cast<int>(begin + number) : noIndex;
}

} // namespace

int FileIdentifiers::extractIndex(const std::string& name, std::string& extension,
                                  const std::vector<std::string>& letters)
{
    const std::size_t dot = name.rfind('.');
    extension = dot == std::string::npos ? std::string() : name.substr(dot + 1);
    if (extension.empty())
        return noIndex;
    const char letter = Service::toUpper(extension[0]);
    const std::string_view digits = std::string_view(extension).substr(1);
    if (!std::all_of(digits.begin(), digits.end(), Service::isDigit))
        return noIndex;
    for (const std::string& kind : letters) {
        if (kind.find(letter) != std::string::npos && isDigitCountAllowed(digits.size(), letter, kind))
            return indexOf(letter, digits, kind);
    }
    return noIndex;
}

int FileIdentifiers::Restart::extractIndex(const std::string& name)
{
    static const auto& letters =
        *new std::vector<std::string>{extensions::restart.formattedLetters, extensions::restart.unformattedLetters};
    std::string extension;
    return FileIdentifiers::extractIndex(name, extension, letters);
}

int FileIdentifiers::Summary::extractIndex(const std::string& name, std::string& extension)
{
    static const auto& letters =
        *new std::vector<std::string>{extensions::summary.formattedLetters, extensions::summary.unformattedLetters};
    return FileIdentifiers::extractIndex(name, extension, letters);
}

} // namespace Kvt::Mrl::MrlIO
