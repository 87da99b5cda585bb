#include "initrestart/write/RestartFileNames.h"

#include "core/Fail.h"
#include "files/Extensions.h"
#include "files/OutputDirectory.h"

#include <stdexcept>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

std::string_view stepLetters(bool formatted)
{
    return formatted ? extensions::restart.formattedLetters : extensions::restart.unformattedLetters;
}

} // namespace

RestartFileNames::RestartFileNames(const std::string& directory, const std::string& rootName,
                                   const RestartFileKind& kind)
    : rootName_(rootName),
      kind_(kind)
{
    directory_.Set(directory, false);
    directory_.MakeComplete(Service::Directory::Current());
}

Service::FileName RestartFileNames::data(int reportStep) const
{
    return outputFile(directory_, rootName_, dataExtension(reportStep), kind_.swapExtensionCase);
}

Service::FileName RestartFileNames::index() const
{
    const auto& kind = kind_.isRestart ? extensions::restartSpec : extensions::initSpec;
    return outputFile(directory_, rootName_, extensions::ofNewFile(kind, kind_.formatted), kind_.swapExtensionCase);
}

void RestartFileNames::refuseSteps() const
{
    const std::string letters = stepLetterSet();
    if (hasFilesOfType(directory_, stepFilesPattern(rootName_, letters)))
        fail<std::invalid_argument>("Files of type ", rootName_, "\\.", letters, "\\d{4}", " already exist.");
}

void RestartFileNames::deleteSteps() const
{
    deleteFilesOfType(directory_, stepFilesPattern(rootName_, stepLetterSet()));
}

std::string RestartFileNames::dataExtension(int reportStep) const
{
    if (!kind_.isRestart)
        return extensions::ofNewFile(extensions::init, kind_.formatted);
    return kind_.unified ? extensions::ofNewUnifiedFile(extensions::restart, kind_.formatted)
                         : stepExtension(stepLetters(kind_.formatted), reportStep);
}

std::string RestartFileNames::stepLetterSet() const
{
    const std::string letters = "[" + std::string(stepLetters(kind_.formatted)) + "]";
    return kind_.swapExtensionCase ? swapLetterCase(letters) : letters;
}

} // namespace Kvt::Mrl::MrlIO
