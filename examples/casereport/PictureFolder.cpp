#include "PictureFolder.h"

#include "SvgParts.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace casereport {

namespace {

std::string fileName(const std::string& title)
{
    std::string name;
    for (const char c : title) {
        const auto letter = static_cast<unsigned char>(c);
        name += std::isalnum(letter) != 0 ? static_cast<char>(std::tolower(letter)) : '-';
    }
    return name + ".svg";
}

} // namespace

PictureFolder::PictureFolder(std::string directory) : directory_(std::move(directory))
{
    std::filesystem::create_directories(directory_);
}

void PictureFolder::add(const std::string& title, const std::string& svg)
{
    pictures_.push_back(fileName(title));
    writeFile(pictures_.back(), svg);
}

void PictureFolder::writePage(const std::string& heading) const
{
    std::string page =
        "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>" + escapeXml(heading) +
        "</title><style>body{font-family:sans-serif;background:#f4f4f4;margin:24px}"
        "img{background:#fff;margin:8px;box-shadow:0 1px 4px #0003;max-width:100%}</style></head><body>\n<h1>" +
        escapeXml(heading) + "</h1>\n";
    for (const std::string& picture : pictures_)
        page.append("<img src=\"").append(picture).append("\" alt=\"").append(picture).append("\">\n");
    writeFile("index.html", page + "</body></html>\n");
}

void PictureFolder::writeFile(const std::string& name, const std::string& text) const
{
    const std::filesystem::path path = std::filesystem::path(directory_) / name;
    const std::filesystem::path aside = path.string() + ".part";
    std::ofstream file(aside, std::ios::binary);
    file << text;
    file.close();
    if (!file)
        throw std::runtime_error("can't write " + path.string());
    std::filesystem::rename(aside, path);
}

} // namespace casereport
