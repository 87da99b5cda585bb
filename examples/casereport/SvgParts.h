#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

/// \file
/// What charts and maps have in common.

namespace casereport {

/// The text with what has a meaning of its own in XML replaced.
std::string escapeXml(const std::string& text);

/// Begins a document of that size, on white and with the classes of texts and lines that the pictures use. The stream
/// must have the classic locale.
void beginSvg(std::ostream& out, double width, double height);
void endSvg(std::ostream& out);

/// style   attributes of the text; the text itself is XML
void drawText(std::ostream& out, double x, double y, const char* style, const std::string& text);

/// Colour of the curve of that number, and all of its style, which is told apart by people with any kind of colour vision.
const char* curveColour(std::size_t n);
std::string curveStyle(std::size_t n);

/// The names of curves behind pieces of them, from the top on and no further down than the height. Gives the place under
/// the last one.
double drawLegend(std::ostream& out, double x, double y, double height, const std::vector<std::string>& names);

/// The smallest of 1, 2, 2.5 and 5 times a power of ten that makes at most so many steps of a span.
double roundStep(double span, int mostSteps);

/// A number with a thin space between groups of three digits, with the decimals that tell neighbouring steps apart.
std::string numberText(double value, double step);

} // namespace casereport
