#pragma once

#include <mrlio/Export.h>
#include <mrlio/GridKeywordList.h>
#include <mrlio/GridKeywords.h>
#include <mrlio/MorvaneReader.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Walks a grid file and hands each keyword to an operation of its own: derive from it and override the operations of
/// the keywords that matter. What is overridden nowhere costs no more than passing the keyword in the file.
///
///     class GridSize : public GridFileKeywordDispatcher
///     {
///     public:
///         using GridFileKeywordDispatcher::processKeyword;
///
///         void processKeyword(EGridGRIDHEAD& head) override { size = head.getGridSize(); }
///
///         void processKeyword(EGridZCORN& depths) override { readData(depths); }
///
///         Index3 size;
///     };
///
/// The using declaration matters: the overloads that a class declares hide all others that it inherits, which would
/// still be called by the walk, but no longer be found on the derived class; compilers warn of that.
///
/// Keywords of a fixed, small number of items (heads, units, axes) come with their data; where number or type in the
/// file is wrong, or the reader gives false for the data, logError is called instead and the walk goes on. (The readers
/// of this library throw for damaged data, which ends the walk.) All other keywords come as the file has them, unchecked
/// and with an empty array: call readData from within the operation for those whose data are wanted.
///
/// Of the keywords with two records the dispatcher gives the Grid one, whose connections count from 0. All local grids
/// come as EGridLGR; if the file has a long name there, the record's header says so by its type, C0nn, and readData
/// reads it whole.
///
/// Nothing is known here of the order of keywords, of the present grid, or of what belongs together.
///
/// One dispatcher belongs to one thread at a time; several may run side by side. The order of the virtual operations is
/// part of the interface.
class MRLIO_EXPORT GridFileKeywordDispatcher
{
public:
    GridFileKeywordDispatcher() = default;

    /// Copies see the reader of a walk that is under way, too.
    GridFileKeywordDispatcher(const GridFileKeywordDispatcher&) = default;
    GridFileKeywordDispatcher& operator=(const GridFileKeywordDispatcher&) = default;

    virtual ~GridFileKeywordDispatcher();

    /// Gets each recognised keyword that no overload of processKeyword was overridden for.
    virtual void processKeywordHeader(const KeywordHeader& header);

/// An operation for each row of MRLIO_GRID_KEYWORDS, from GridLGRILG to EGridFILEHEAD.
// NOLINTNEXTLINE(bugprone-macro-parentheses): a class can't stand in parentheses
#define MRLIO_GRID_OPERATION(Record, keyword, valueType, count, form) virtual void processKeyword(Record& record);
    MRLIO_GRID_KEYWORDS(MRLIO_GRID_OPERATION)
#undef MRLIO_GRID_OPERATION

    /// Gets each keyword that isn't recognised. Names are compared letter by letter, case included.
    virtual void processUnknownKeyword(const KeywordHeader& header);

    /// The name of a keyword before it is processed, and the end of that.
    virtual void logPushMessageContext(const std::string& context);
    virtual void logPopMessageContext();

    /// All that there is to tell goes to logError; without an override nothing is logged. The others are never called
    /// from here.
    virtual void logError(const std::string& message);
    virtual void logWarning(const std::string& message);
    virtual void logInfo(const std::string& message);
    virtual void logDebug(const std::string& message);

    /// Called behind the last keyword.
    virtual void finalize();

    /// Walks the keywords from where the reader stands to the end of the file.
    /// reader   used during the call only
    /// throws   std::invalid_argument for null; what the reader throws for a damaged file, and what an override throws.
    ///          Neither the pop of the message context nor finalize is called then, and the reader stays known to
    ///          getReader and readData until the next walk: kept.
    void processFile(MorvaneReader* reader);

    /// Read the array of a record that an operation was handed, during a walk only; an unknown keyword's by a record
    /// made from its header.
    /// returns  what the reader gives: true, unless it is another program's
    /// throws   std::invalid_argument outside a walk; as MorvaneReader::readDataVector does
    bool readData(KeywordTmpl<ValueType::DOUB>& keyword);
    bool readData(KeywordTmpl<ValueType::REAL>& keyword);
    bool readData(KeywordTmpl<ValueType::LOGI>& keyword);
    bool readData(KeywordCHAR& keyword);
    bool readData(KeywordINTE& keyword);

protected:
    /// The reader of the walk that is under way. An override may read with it, but not walk.
    /// throws std::invalid_argument outside a walk
    MorvaneReader& getReader();

private:
    MorvaneReader* reader_ = nullptr;
};

} // namespace Kvt::Mrl::MrlIO
