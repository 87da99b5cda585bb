#include "SvgParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ostream>

namespace casereport {

namespace {

constexpr const char* styles = "<style>text{font-family:'DejaVu Sans',Verdana,sans-serif;fill:#222}"
                               ".title{font-size:20px;font-weight:bold}.subtitle{font-size:13px;fill:#666}"
                               ".tick{font-size:12px;fill:#444}.axis{font-size:13px}.legend{font-size:13px}"
                               ".grid{stroke:#e2e2e2;stroke-width:1}.frame{fill:none;stroke:#888;stroke-width:1}"
                               ".curve{fill:none;stroke-width:2;stroke-linejoin:round}</style>\n";

constexpr std::array<const char*, 8> colours{"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                             "#e69f00", "#56b4e9", "#555555", "#8c564b"};
constexpr std::array<const char*, 3> dashes{"", "8 4", "2 4"};

/// How many decimals tell neighbouring steps apart.
int decimalsFor(double step)
{
    int decimals = 0;
    for (double scaled = step; decimals < 9 && std::abs(scaled - std::round(scaled)) > 1e-6 * scaled; scaled *= 10.0)
        ++decimals;
    return decimals;
}

} // namespace

std::string escapeXml(const std::string& text)
{
    std::string escaped;
    for (char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else if (c == '"')
            escaped += "&quot;";
        else
            escaped += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
    return escaped;
}

void beginSvg(std::ostream& out, double width, double height)
{
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << " " << height << "\" width=\""
        << width << "\" height=\"" << height << "\">\n"
        << styles << "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
}

void endSvg(std::ostream& out)
{
    out << "</svg>\n";
}

void drawText(std::ostream& out, double x, double y, const char* style, const std::string& text)
{
    out << "<text x=\"" << x << "\" y=\"" << y << "\" " << style << ">" << text << "</text>\n";
}

const char* curveColour(std::size_t n)
{
    return colours[n % colours.size()];
}

std::string curveStyle(std::size_t n)
{
    std::string style = std::string("stroke=\"") + curveColour(n) + "\"";
    const char* dash = dashes[n / colours.size() % dashes.size()];
    if (*dash != '\0')
        style += std::string(" stroke-dasharray=\"") + dash + "\"";
    return style;
}

double drawLegend(std::ostream& out, double x, double y, double height, const std::vector<std::string>& names)
{
    const double lineHeight = std::min(24.0, height / static_cast<double>(std::max<std::size_t>(1, names.size())));
    for (std::size_t n = 0; n < names.size(); ++n) {
        out << "<line class=\"curve\" " << curveStyle(n) << " x1=\"" << x << "\" x2=\"" << x + 26 << "\" y1=\"" << y
            << "\" y2=\"" << y << "\"/>\n";
        drawText(out, x + 34, y + 4, "class=\"legend\"", escapeXml(names[n]));
        y += lineHeight;
    }
    return y;
}

double roundStep(double span, int mostSteps)
{
    const double least = span / mostSteps;
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (double factor : {1.0, 2.0, 2.5, 5.0})
        if (factor * power >= least * (1.0 - 1e-9))
            return factor * power;
    return 10.0 * power;
}

std::string numberText(double value, double step)
{
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.*f", decimalsFor(step), std::abs(value) < 1e-9 * step ? 0.0 : value);
    std::string text = digits;
    std::size_t end = std::min(text.find('.'), text.size());
    const std::size_t begin = text[0] == '-' ? 1 : 0;
    while (end > begin + 3) {
        end -= 3;
        text.insert(end, "&#8201;");
    }
    return text;
}

} // namespace casereport
