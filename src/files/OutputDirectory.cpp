#include "files/OutputDirectory.h"

#include "core/Fail.h"

#include <mrlio/service/Exception.h>

#include <algorithm>
#include <boost/filesystem/exception.hpp>
#include <stdexcept>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int stepsPerLetter = 10000;
constexpr std::size_t stepDigits = 4;
constexpr int deletionAttempts = 100;

Service::Directory directoryOf(const std::string& path)
{
    try {
        return Service::Directory(path);
    } catch (const Service::DirectoryException&) {
        fail<std::invalid_argument>("Path points to an existing item that is not a directory: ", path);
    } catch (const std::exception&) {
        fail<std::invalid_argument>("Invalid directory path: ", path);
    }
}

char swapLetterCase(char c)
{
    if (c >= 'a' && c <= 'z')
        return static_cast<char>(c - 'a' + 'A');
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string escaped(const std::string& text)
{
    constexpr std::string_view special = R"(.[]{}()\*+?|^$)";
    std::string result;
    for (const char c : text) {
        if (special.find(c) != std::string_view::npos)
            result += '\\';
        result += c;
    }
    return result;
}

} // namespace

Service::Directory outputDirectory(const std::string& path)
{
    Service::Directory directory = directoryOf(path);
    if (directory.IsRelativePath())
        directory.MakeComplete(Service::Directory::Current());
    if (!directory.IsDirectory())
        fail<std::invalid_argument>("Directory ", directory.Name(), " is not found.");
    return directory;
}

Service::FileName outputFile(const Service::Directory& directory, const std::string& rootName,
                             const std::string& extension, bool swapCase)
{
    Service::FileName file;
    file.SetDirectory(directory.Name());
    file.SetFileName(rootName, swapCase ? swapLetterCase(extension) : extension);
    return file;
}

std::string swapLetterCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return swapLetterCase(c); });
    return text;
}

std::string fileExistsText(const Service::FileName& file)
{
    return "File " + file.GetFullName() + " already exists.";
}

std::string stepExtension(std::string_view letters, int step)
{
    const int letter = std::clamp(step / stepsPerLetter, 0, static_cast<int>(letters.size()) - 1);
    std::string digits = std::to_string(step - letter * stepsPerLetter);
    if (digits.size() < stepDigits)
        digits.insert(0, stepDigits - digits.size(), '0');
    return letters[static_cast<std::size_t>(letter)] + digits;
}

std::string stepFilesPattern(const std::string& rootName, const std::string& letters)
{
    return "^" + escaped(rootName) + "\\." + letters + "\\d{4}$";
}

bool hasFilesOfType(const Service::Directory& directory, const std::string& pattern)
{
    std::vector<std::string> found;
    directory.Find(pattern, false, true, false, false, false, found);
    return !found.empty();
}

void refuseFilesOfType(const Service::Directory& directory, const std::string& pattern)
{
    if (hasFilesOfType(directory, pattern))
        fail<std::invalid_argument>("Files of type ", pattern, " already exist.");
}

void deleteFilesOfType(const Service::Directory& directory, const std::string& pattern)
{
    for (int attempt = 1;; ++attempt) {
        try {
            directory.DeleteContent(pattern, false);
            return;
        } catch (const boost::filesystem::filesystem_error&) {
            if (attempt == deletionAttempts)
                throw;
        }
    }
}

} // namespace Kvt::Mrl::MrlIO
