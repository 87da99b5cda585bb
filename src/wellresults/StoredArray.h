#pragma once

#include "core/Fail.h"

#include <mrlio/ArrayConverter.h>
#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>

#include <memory>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// An array as its file holds it, shared with those who got it; nothing for an array that isn't there or can't be
/// stored.
using StoredArray = std::variant<std::monostate, std::shared_ptr<std::vector<int>>, std::shared_ptr<std::vector<float>>,
                                 std::shared_ptr<std::vector<double>>, std::shared_ptr<std::vector<std::string>>>;

/// Reads the array behind a header by the type that it names: DOUB as double, REAL as float, INTE and LOGI as int, CHAR,
/// MESS and C0nn as string. Of other types nothing is read and nothing becomes of them.
/// False if the reader couldn't read it; `array` is nothing then.
/// throws   what MorvaneReader::readDataVector does
bool readStoredArray(MorvaneReader& reader, const KeywordHeader& header, StoredArray& array);

/// Replaces `values` by what is stored, converted by the rule of ArrayConverter.
/// False, with `values` empty, if nothing is stored.
/// throws   MrlIOException if the types don't convert
template <class T>
bool copyTo(const StoredArray& array, std::vector<T>& values)
{
    values.clear();
    return std::visit(
        [&values]<class Stored>(const Stored& stored) {
            if constexpr (std::is_same_v<Stored, std::monostate>)
                return false;
            else {
                ArrayConverter::convert(*stored, values);
                return true;
            }
        },
        array);
}

/// The stored vector itself; null if nothing is stored.
/// where    begins the text of a failure
/// throws   E if it holds elements of another type
template <class T, class E>
std::shared_ptr<std::vector<T>> sharedVector(const StoredArray& array, const char* where)
{
    if (std::holds_alternative<std::monostate>(array))
        return nullptr;
    if (const auto* vector = std::get_if<std::shared_ptr<std::vector<T>>>(&array))
        return *vector;
    fail<E>(where, ": requested array type does not match the actual storage type");
}

} // namespace Kvt::Mrl::MrlIO
