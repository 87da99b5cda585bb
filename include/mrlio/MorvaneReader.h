#pragma once

#include <mrlio/Export.h>
#include <mrlio/KeywordTmpl.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Reads one keyword file, whatever its form: walks its keyword headers in file order, and reads all or part of the
/// array behind any header that it has given, in any order.
///
/// The reader remembers the keyword that the walk gave last, the current keyword. Reading arrays doesn't disturb the
/// walk. The end of the file is not remembered: a walk that came to it goes on when a keyword has been appended.
///
/// Elements are counted from 0, and a slice is given by its first and its last element, both inclusive. Any negative
/// number stands for the start of the array in `first`, and for its end in `last`.
///
/// One reader belongs to one thread at a time; separate readers are independent of each other. The order of the virtual
/// operations is part of the interface. Programs may derive readers of their own.
class MRLIO_EXPORT MorvaneReader
{
public:
    MorvaneReader() = default;

    /// Copies take over the file name and nothing else.
    MorvaneReader(const MorvaneReader& other);
    MorvaneReader& operator=(const MorvaneReader& other);

    /// Closes the file.
    virtual ~MorvaneReader();

    /// Whether the last operation came to the end of the file; true with no file open. After an exception it tells a
    /// keyword that is cut by the end of the file from a damaged one.
    virtual bool eof() = 0;

    /// Opens a file in place of the one that is open, if any, and forgets the current keyword.
    /// False, with no file open and an empty file name, if it can't be opened.
    virtual bool setFilename(const std::string& fileName) = 0;

    /// The name of the open file, empty for none.
    virtual const std::string& getFileName() const;

    /// Makes `header` the current keyword, so that the walk goes on behind it; a default header takes the walk back to
    /// the start of the file. Nothing is checked here.
    virtual void setCurrentHeader(KeywordHeader& header) = 0;

    /// One step of the walk, over single header records: see readNextKeywordHeader, which nearly all callers want.
    /// Of a double header, the first call gives the first record, of type X231. A header of that type handed in is
    /// completed by the next record, which has to be the second one.
    virtual bool readNextSingleKeywordHeader(KeywordHeader& header) = 0;

    /// Whether the keyword that `header` describes still stands where it says. An exception other than MrlIOException
    /// passes.
    virtual bool isValidHeader(const KeywordHeader& header) = 0;

    /// Reads the header of the keyword behind the current one, which becomes the current one; double headers come as
    /// one. The records between are checked, not read.
    /// False at the end of the file, and where no header stands; `header` may have been changed then.
    /// throws MrlIOException if no file is open, the current keyword is stale or damaged, or the header is
    bool readNextKeywordHeader(KeywordHeader& header);

    /// Checks a slice of the array that `header` describes and puts the start and the end of the array in place of
    /// negative numbers. The slice of an array of size 0 is -1 to -1 and stays so.
    /// throws MrlIOException if first or last lie outside the array, or last before first
    static void validateAndSetIndex(const KeywordHeader& header, std::int64_t& first, std::int64_t& last);

    /// Reads the whole array that the record's header describes into the record; a record of integers adds its shift.
    /// throws as readDataVector does
    template <int V>
    bool readData(KeywordTmpl<V>& keyword)
    {
        return readDataVector(keyword, keyword.array());
    }

    bool readData(KeywordCHAR& keyword);
    bool readData(KeywordINTE& keyword);

    /// Reads elements first to last of the array that `header` describes. There is no conversion: INTE and LOGI (the
    /// stored integers) are read as int, REAL as float, DOUB as double, CHAR, MESS and C0nn as string without the
    /// blanks at its ends.
    ///
    /// out      its content is replaced. It grows by what the file really holds, so a lying header allocates nothing;
    ///          its capacity is kept, so reading many arrays into one vector is the fastest way.
    /// returns  true; only readers of other programs may give false.
    /// throws   MrlIOException if first or last lie outside the array, the type doesn't fit, name, type or size at the
    ///          header's position differ, or the data are damaged; out is empty then.
    /// cost     unformatted, a look at each record before the slice; formatted, the values before it are passed one by
    ///          one.
    bool readDataVector(const KeywordHeader& header, std::vector<int>& out, std::int64_t first = -1,
                        std::int64_t last = -1);
    bool readDataVector(const KeywordHeader& header, std::vector<float>& out, std::int64_t first = -1,
                        std::int64_t last = -1);
    bool readDataVector(const KeywordHeader& header, std::vector<double>& out, std::int64_t first = -1,
                        std::int64_t last = -1);
    bool readDataVector(const KeywordHeader& header, std::vector<std::string>& out, std::int64_t first = -1,
                        std::int64_t last = -1);
    /// The same with the record's shift added to each value.
    bool readDataVector(const KeywordINTE& keyword, std::vector<int>& out, std::int64_t first = -1,
                        std::int64_t last = -1);

    /// The same into a buffer that holds last - first + 1 elements.
    bool readDataArray(const KeywordHeader& header, int* buffer, std::int64_t first, std::int64_t last);
    bool readDataArray(const KeywordHeader& header, float* buffer, std::int64_t first, std::int64_t last);
    bool readDataArray(const KeywordHeader& header, double* buffer, std::int64_t first, std::int64_t last);
    bool readDataArray(const KeywordHeader& header, std::string* buffer, std::int64_t first, std::int64_t last);
    bool readDataArray(const KeywordINTE& keyword, int* buffer, std::int64_t first, std::int64_t last);

protected:
    /// Read elements first to last, which lie in the array, into a buffer that holds them. The buffer may be null for
    /// an array of size 0, where nothing but the header is checked.
    virtual bool readArray(const KeywordHeader& header, std::string* out, std::int64_t first, std::int64_t last) = 0;
    virtual bool readArray(const KeywordHeader& header, float* out, std::int64_t first, std::int64_t last) = 0;
    virtual bool readArray(const KeywordHeader& header, double* out, std::int64_t first, std::int64_t last) = 0;
    virtual bool readArray(const KeywordHeader& header, int* out, std::int64_t first, std::int64_t last) = 0;

    /// The same in place of what a vector holds. These forms resize it and call readArray; readers override them to let
    /// the vector grow by what the file really holds. What the vector held before may still stand in it on entry.
    virtual bool readVector(const KeywordHeader& header, std::vector<std::string>& out, std::int64_t first,
                            std::int64_t last);
    virtual bool readVector(const KeywordHeader& header, std::vector<float>& out, std::int64_t first,
                            std::int64_t last);
    virtual bool readVector(const KeywordHeader& header, std::vector<double>& out, std::int64_t first,
                            std::int64_t last);
    virtual bool readVector(const KeywordHeader& header, std::vector<int>& out, std::int64_t first, std::int64_t last);

    /// The form for integers, with the record's shift added to what was read.
    bool readArray(const KeywordINTE& keyword, int* out, std::int64_t first, std::int64_t last);

    /// Sets what getFileName gives.
    void storeFileName(const std::string& fileName) { fileName_ = fileName; }

private:
    template <class T>
    bool readSlice(const KeywordHeader& header, std::vector<T>& out, std::int64_t first, std::int64_t last);

    std::string fileName_;
};

} // namespace Kvt::Mrl::MrlIO
