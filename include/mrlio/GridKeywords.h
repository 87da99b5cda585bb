#pragma once

#include <mrlio/ConcreteKeyword.h>
#include <mrlio/Export.h>
#include <mrlio/GridKeywordList.h>
#include <mrlio/Index3.h>
#include <mrlio/Vertex2F.h>

#include <string>
#include <vector>

/// \file
/// The keyword records of grid files, in both of their kinds. GridKeywordList.h lists them.
///
/// A program that reads grid files meets them in GridFileKeywordDispatcher. One that writes makes them from values and
/// hands them to KeywordWriter:
///
///     writer.write(GridMAPUNITS("METRES"));
///     writer.write(EGridZCORN(depths));
///     writer.write(EGridENDGRID(EGridENDGRID::getKeywordName()));
///
/// All records are plain values: copied, moved and assigned with their arrays. Each can be made from a KeywordHeader,
/// whose name, type and size it takes over unchecked; its array is empty then, until a reader fills it. Accessors and
/// setters throw std::invalid_argument if the array doesn't have the items that they are about.
///
/// Some keywords have two records, the one with the prefix EGrid, the other with Grid. Of the connections (NNC1 and so
/// on) the Grid record holds indexes counted from 0, and the EGrid record holds what stands in the file. Values read
/// with the one and written with the other don't give the same file.
///
/// Texts of more than 8 characters, in EGridLGR and EGridNAME as in all CHAR records, are cut when they are written: to
/// 8 characters in unformatted files, to 13 in formatted ones, where one of 13 loses its closing quote. A record made
/// from the header of a longer type, C0nn, goes by that.

namespace Kvt::Mrl::MrlIO {

#define MRLIO_GRID_TRAITS(Record, keyword, valueType, count, form)                                                     \
    struct MRLIO_EXPORT Record##_traits                                                                                \
    {                                                                                                                  \
        static constexpr const char* name = keyword;                                                                   \
        static constexpr int size = count;                                                                             \
        static constexpr ValueType::Enum type = ValueType::valueType;                                                  \
    };

MRLIO_GRID_KEYWORDS(MRLIO_GRID_TRAITS)
MRLIO_GRID_KEYWORD_VARIANTS(MRLIO_GRID_TRAITS)

// One macro for each form of a row. Records of the form Own are written out further down.
// NOLINTNEXTLINE(bugprone-macro-parentheses): a name that is declared can't stand in parentheses
#define MRLIO_GRID_Plain(Record) using Record = ConcreteKeyword<Record##_traits>;
#define MRLIO_GRID_Named(Record)                                                                                       \
    class MRLIO_EXPORT Record : public ConcreteKeyword<Record##_traits>                                                \
    {                                                                                                                  \
    public:                                                                                                            \
        using ConcreteKeyword::ConcreteKeyword;                                                                        \
    };
#define MRLIO_GRID_Index(Record)                                                                                       \
    class MRLIO_EXPORT Record : public ConcreteKeyword<Record##_traits>                                                \
    {                                                                                                                  \
    public:                                                                                                            \
        using ConcreteKeyword::ConcreteKeyword;                                                                        \
                                                                                                                       \
        int getShift() const override { return -1; }                                                                   \
    };
#define MRLIO_GRID_Array(Record)                                                                                       \
    class MRLIO_EXPORT Record : public ConcreteKeyword<Record##_traits>                                                \
    {                                                                                                                  \
    public:                                                                                                            \
        explicit Record(const KeywordHeader& header) : ConcreteKeyword(header) {}                                      \
                                                                                                                       \
        explicit Record(const std::vector<ElementType>& values) : ConcreteKeyword(getKeywordName(), values) {}         \
    };
#define MRLIO_GRID_IndexArray(Record)                                                                                  \
    class MRLIO_EXPORT Record : public ConcreteKeyword<Record##_traits>                                                \
    {                                                                                                                  \
    public:                                                                                                            \
        explicit Record(const KeywordHeader& header) : ConcreteKeyword(header) {}                                      \
                                                                                                                       \
        explicit Record(const std::vector<ElementType>& values) : ConcreteKeyword(getKeywordName(), values) {}         \
                                                                                                                       \
        int getShift() const override { return -1; }                                                                   \
    };
#define MRLIO_GRID_Text(Record)                                                                                        \
    class MRLIO_EXPORT Record : public ConcreteKeyword<Record##_traits>                                                \
    {                                                                                                                  \
    public:                                                                                                            \
        explicit Record(const KeywordHeader& header) : ConcreteKeyword(header) {}                                      \
                                                                                                                       \
        explicit Record(const std::string& text)                                                                       \
            : ConcreteKeyword(getKeywordName(), std::vector<std::string>{text}) {}                                     \
    };
#define MRLIO_GRID_Own(Record)
#define MRLIO_GRID_RECORD(Record, keyword, valueType, count, form) MRLIO_GRID_##form(Record)

MRLIO_GRID_KEYWORDS(MRLIO_GRID_RECORD)
MRLIO_GRID_KEYWORD_VARIANTS(MRLIO_GRID_RECORD)

#undef MRLIO_GRID_TRAITS
#undef MRLIO_GRID_RECORD
#undef MRLIO_GRID_Plain
#undef MRLIO_GRID_Named
#undef MRLIO_GRID_Index
#undef MRLIO_GRID_Array
#undef MRLIO_GRID_IndexArray
#undef MRLIO_GRID_Text
#undef MRLIO_GRID_Own

// Keywords that both kinds of files have in one shape go by both prefixes.
using GridBOXORIG_traits = EGridBOXORIG_traits;
using GridRADIAL_traits = EGridRADIAL_traits;
using GridCELL2D_traits = EGridCELL2D_traits;
using GridNCELL2D_traits = EGridNCELL2D_traits;
using GridXYZCORN_traits = EGridXYZCORN_traits;
using GridBOXORIG = EGridBOXORIG;
using GridRADIAL = EGridRADIAL;
using GridCELL2D = EGridCELL2D;
using GridNCELL2D = EGridNCELL2D;
using GridXYZCORN = EGridXYZCORN;

/// What a file of the extended kind begins with.
class MRLIO_EXPORT EGridFILEHEAD : public ConcreteKeyword<EGridFILEHEAD_traits>
{
public:
    /// The three enumerations have no values of their own: cast the number that the readers of the file expect.
    enum GridType : int
    {
    };

    enum DualSystemType : int
    {
    };

    enum OriginalGridType : int
    {
    };

    explicit EGridFILEHEAD(const KeywordHeader& header);

    /// Items 0, 1 and 3 take the three integers, items 4 to 6 the types; the rest are 0.
    EGridFILEHEAD(int item0, int item1, int item3, GridType gridType, DualSystemType dualSystem,
                  OriginalGridType originalType);
};

/// What a grid, global or local, begins with in a file of the extended kind.
///
/// References that accessors give are views of the array's items, as they stand in the file. They stay good as long as
/// the array keeps its memory, and show later changes.
class MRLIO_EXPORT EGridGRIDHEAD : public ConcreteKeyword<EGridGRIDHEAD_traits>
{
public:
    /// It has no values of its own: cast the number that the readers of the file expect.
    enum GridType : int
    {
    };

    explicit EGridGRIDHEAD(const KeywordHeader& header);

    /// The grid's type and its numbers of cells in the three directions; item 4 is the caller's, the rest are 0.
    EGridGRIDHEAD(GridType gridType, int nx, int ny, int nz, int item4);

    const Index3& getGridSize() const;

    int getNumReservoirs() const;
    int getNumDomains() const;

    /// True if the radial item is 0, so in a header that was just made, too. This is the meaning that the item has in
    /// these records.
    bool isRadial() const;

    /// The box of cells of the host grid that a local grid replaces.
    const Index3& getHostCellMin() const;
    const Index3& getHostCellMax() const;

    /// radial             stored as it is, so 0 makes isRadial true
    /// hostMin, hostMax   as the file is to hold them; may be views of this record's own items
    void setStrGridHeadData(int reservoirs, int domains, int radial, const Index3& hostMin, const Index3& hostMax);
};

/// The name of a local grid as one text of up to 99 characters, where EGridLGR holds 8.
class MRLIO_EXPORT EGridLGRLongName : public ConcreteKeyword<EGridLGRLong_traits>
{
public:
    explicit EGridLGRLongName(const KeywordHeader& header);

    /// The text's length, at least 1, becomes the width of the items in the file. Formatted files take up to 77.
    /// throws std::invalid_argument for more than 99 characters
    explicit EGridLGRLongName(const std::string& name);
};

/// Two texts of up to 8 characters each.
class MRLIO_EXPORT GridLGR : public ConcreteKeyword<GridLGR_traits>
{
public:
    explicit GridLGR(const KeywordHeader& header);
    GridLGR(std::string first, std::string second);
};

/// Two texts of up to 8 characters each.
class MRLIO_EXPORT GridGRIDUNIT : public ConcreteKeyword<GridGRIDUNIT_traits>
{
public:
    explicit GridGRIDUNIT(const KeywordHeader& header);
    GridGRIDUNIT(const std::string& first, const std::string& second);
};

/// The axes of the grid on the map. Views as in EGridGRIDHEAD.
class MRLIO_EXPORT GridMAPAXES : public ConcreteKeyword<GridMAPAXES_traits>
{
public:
    explicit GridMAPAXES(const KeywordHeader& header);

    /// In the order of the file: a point on the y axis, the origin, a point on the x axis.
    GridMAPAXES(float yendX, float yendY, float originX, float originY, float xendX, float xendY);

    const Vertex2F& yend() const;
    const Vertex2F& origin() const;
    const Vertex2F& xend() const;
};

/// A flag for each cell.
class MRLIO_EXPORT EGridACTNUM : public ConcreteKeyword<EGridACTNUM_traits>
{
public:
    explicit EGridACTNUM(const KeywordHeader& header);

    /// A vector that is moved in isn't copied.
    explicit EGridACTNUM(std::vector<int> values);
};

/// What the connections of a grid begin with: items 0 and 1, the other eight are 0.
class MRLIO_EXPORT EGridNNCHEAD : public ConcreteKeyword<EGridNNCHEAD_traits>
{
public:
    explicit EGridNNCHEAD(const KeywordHeader& header);
    EGridNNCHEAD(int item0, int item1);
};

/// The same for connections between two local grids. The record GridNNCHEADA takes any number of items.
class MRLIO_EXPORT EGridNNCHEADA : public ConcreteKeyword<EGridNNCHEADA_traits>
{
public:
    explicit EGridNNCHEADA(const KeywordHeader& header);
    EGridNNCHEADA(int item0, int item1);
};

/// The size of a grid in a file of the older kind. Views as in EGridGRIDHEAD.
class MRLIO_EXPORT GridDIMENS : public ConcreteKeyword<GridDIMENS_traits>
{
public:
    explicit GridDIMENS(const KeywordHeader& header);
    GridDIMENS(int nx, int ny, int nz);

    const Index3& getGridSize() const;
};

/// Where a local grid lies, in a file of the older kind. Views as in EGridGRIDHEAD.
class MRLIO_EXPORT GridLGRILG : public ConcreteKeyword<GridLGRILG_traits>
{
public:
    explicit GridLGRILG(const KeywordHeader& header);

    /// The box of cells of the host grid; all other items are 0.
    GridLGRILG(const Index3& hostMin, const Index3& hostMax);

    /// No constructor and no setter sets it: use array()[0].
    int getNTheta() const;

    const Index3& getHostCellMin() const;

    /// By value, since the file holds it as z, y, x. Only the maximum is turned round: kept, files are like that.
    Index3 getHostCellMax() const;

    const Index3& getGridSize() const;
    void setGridSize(const Index3& size);
};

/// One cell, in a file of the older kind.
class MRLIO_EXPORT GridCOORDS : public ConcreteKeyword<GridCOORDS_traits>
{
public:
    explicit GridCOORDS(const KeywordHeader& header);

    /// itemCount   the size of the record; items behind the first four are 0
    /// throws      std::invalid_argument if it is below 4
    GridCOORDS(int i, int j, int k, int cell, int itemCount);

    /// Item 4. Nothing is done to a record of exactly 4 items.
    void setActiveCells(int active);

    /// Items 5 and 6. Nothing is done to a record of fewer than 7 items.
    void setHostCellAndCoarsenedGroup(int host, int group);
};

/// The eight corners of one cell, in a file of the older kind.
class MRLIO_EXPORT GridCORNERS : public ConcreteKeyword<GridCORNERS_traits>
{
public:
    explicit GridCORNERS(const KeywordHeader& header);

    /// 24 zeros, whatever the number is: it is there for older callers.
    explicit GridCORNERS(int unused);

    /// vertex   0 to 7
    /// throws   std::invalid_argument for any other vertex
    void setVertices(int vertex, float x, float y, float z);
};

} // namespace Kvt::Mrl::MrlIO
