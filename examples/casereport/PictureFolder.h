#pragma once

#include <string>
#include <vector>

namespace casereport {

/// A folder of pictures with a page that shows them all. Files appear whole: they are written aside and renamed, so
/// that a browser may look at any time. Throws std::runtime_error if a file can't be written.
class PictureFolder
{
public:
    explicit PictureFolder(std::string directory);

    /// Writes a picture under a name that is made from the title.
    void add(const std::string& title, const std::string& svg);

    /// Writes index.html.
    void writePage(const std::string& heading) const;

    /// The pictures' files, in the order in which they were added.
    const std::vector<std::string>& pictures() const { return pictures_; }

private:
    void writeFile(const std::string& name, const std::string& text) const;

    std::string directory_;
    std::vector<std::string> pictures_;
};

} // namespace casereport
