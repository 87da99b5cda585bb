#pragma once

/// \file
/// The keywords of grid files, each listed once: records, dispatcher and its handlers are made from these rows.
///
/// A row is ROW(Record, "NAME", type, count, form):
///
/// Record   the record class in GridKeywords.h; its traits are Record_traits
/// NAME     the keyword in files
/// type     of ValueType::Enum: INTE, REAL, CHAR or C0nn
/// count    the number of items that the keyword has to have, -1 where any will do. A dispatcher reads the keywords of
///          a fixed count by itself and leaves the others to its client.
/// form     what the record class adds to ConcreteKeyword:
///            Plain        nothing, it is another name for it
///            Named        nothing, but it is a class of its own
///            Index        items count from 1 in files and from 0 in memory
///            Array        a constructor from the items
///            IndexArray   both of these
///            Text         a constructor from the one text that it holds, which has up to 8 characters
///            Own          more than that: GridKeywords.h has the class in full
///
/// Programs may walk the rows with a macro of their own.

/// What GridFileKeywordDispatcher recognises, one row for each keyword. The rows stand in the order of its virtual
/// operations, so nothing may be moved, and new rows go to a new list.
#define MRLIO_GRID_KEYWORDS(ROW)                                                                                       \
    ROW(GridLGRILG, "LGRILG", INTE, 11, Own)                                                                           \
    ROW(GridDIMENS, "DIMENS", INTE, 3, Own)                                                                            \
    ROW(GridCORNERS, "CORNERS", REAL, 24, Own)                                                                         \
    ROW(GridCOORDS, "COORDS", INTE, -1, Own)                                                                           \
    ROW(EGridRADIAL, "RADIAL", CHAR, 1, Plain)                                                                         \
    ROW(GridNNA2, "NNA2", INTE, -1, Index)                                                                             \
    ROW(GridNNA1, "NNA1", INTE, -1, Index)                                                                             \
    ROW(GridNNCHEADA, "NNCHEADA", INTE, -1, Named)                                                                     \
    ROW(GridNNCG, "NNCG", INTE, -1, Index)                                                                             \
    ROW(GridNNCL, "NNCL", INTE, -1, Index)                                                                             \
    ROW(GridNNC2, "NNC2", INTE, -1, Index)                                                                             \
    ROW(GridNNC1, "NNC1", INTE, -1, Index)                                                                             \
    ROW(GridNNCHEAD, "NNCHEAD", INTE, 10, Named)                                                                       \
    ROW(EGridMODCELL, "MODCELL", INTE, -1, Index)                                                                      \
    ROW(EGridSIDEFACE, "SIDEFACE", INTE, -1, Index)                                                                    \
    ROW(EGridENDFACE, "ENDFACE", INTE, -1, Index)                                                                      \
    ROW(EGridCELL2D, "CELL2D", INTE, -1, Plain)                                                                        \
    ROW(EGridNCELL2D, "NCELL2D", INTE, -1, Plain)                                                                      \
    ROW(EGridXYZCORN, "XYZCORN", REAL, -1, Plain)                                                                      \
    ROW(EGridEXICORN, "EXICORN", REAL, -1, Plain)                                                                      \
    ROW(EGridNULLCORN, "NULLCORN", INTE, -1, Plain)                                                                    \
    ROW(EGridSPLITC, "SPLITC", INTE, -1, Index)                                                                        \
    ROW(EGridNSPLITC, "NSPLITC", INTE, -1, Plain)                                                                      \
    ROW(EGridSPLIT, "SPLIT", INTE, -1, Plain)                                                                          \
    ROW(EGridCOORDSEG, "COORDSEG", INTE, -1, Plain)                                                                    \
    ROW(EGridCOORDTYP, "COORDTYP", INTE, -1, Named)                                                                    \
    ROW(EGridREPCELL, "REPCELL", INTE, -1, Index)                                                                      \
    ROW(EGridMODFACE, "MODFACE", INTE, -1, Index)                                                                      \
    ROW(EGridHOSTCELL, "HOSTCELL", INTE, -1, Index)                                                                    \
    ROW(EGridEXTREPGL, "EXTREPGL", INTE, -1, Index)                                                                    \
    ROW(EGridAQUIFER, "AQUIFER", CHAR, -1, Plain)                                                                      \
    ROW(EGridRAD3ANIS, "RAD3ANIS", REAL, 3, Plain)                                                                     \
    ROW(EGridRAD3DIRS, "RAD3DIRS", REAL, -1, Plain)                                                                    \
    ROW(EGridRAD3AXIS, "RAD3AXIS", REAL, -1, Plain)                                                                    \
    ROW(EGridRAD3CAPK, "RAD3CAPK", INTE, 1, Plain)                                                                     \
    ROW(EGridRADANISO, "RADANISO", REAL, 1, Plain)                                                                     \
    ROW(EGridRADAXIS, "RADAXIS", REAL, 6, Plain)                                                                       \
    ROW(EGridVIRCELL, "VIRCELL", INTE, -1, Index)                                                                      \
    ROW(EGridEXTCELL, "EXTCELL", INTE, -1, Plain)                                                                      \
    ROW(EGridVIRGRID, "VIRGRID", INTE, 3, Plain)                                                                       \
    ROW(EGridBOXES, "BOXES", INTE, -1, Plain)                                                                          \
    ROW(EGridAMALGAM, "AMALGAM", INTE, 4, Plain)                                                                       \
    ROW(EGridNAME, "NAME", CHAR, -1, Text)                                                                             \
    ROW(EGridCELLCTRS, "CELLCTRS", REAL, -1, Plain)                                                                    \
    ROW(EGridCELLFACS, "CELLFACS", INTE, -1, Index)                                                                    \
    ROW(EGridNCELLFAC, "NCELLFAC", INTE, -1, Plain)                                                                    \
    ROW(EGridFACEHALO, "FACEHALO", INTE, -1, Plain)                                                                    \
    ROW(EGridFACETYPS, "FACETYPS", INTE, -1, Plain)                                                                    \
    ROW(EGridFACEHING, "FACEHING", INTE, -1, Index)                                                                    \
    ROW(EGridFACENODS, "FACENODS", INTE, -1, IndexArray)                                                               \
    ROW(EGridNFACENOD, "NFACENOD", INTE, -1, Array)                                                                    \
    ROW(EGridNDCOORD, "NDCOORD", REAL, -1, Array)                                                                      \
    ROW(EGridHOSTNUM, "HOSTNUM", INTE, -1, IndexArray)                                                                 \
    ROW(EGridCORSNUM, "CORSNUM", INTE, -1, Array)                                                                      \
    ROW(EGridACTNUM, "ACTNUM", INTE, -1, Own)                                                                          \
    ROW(EGridZCORN, "ZCORN", REAL, -1, Array)                                                                          \
    ROW(EGridCOORDSYS, "COORDSYS", INTE, -1, Array)                                                                    \
    ROW(EGridCOORD, "COORD", REAL, -1, Array)                                                                          \
    ROW(EGridBOXORIG, "BOXORIG", INTE, 3, Plain)                                                                       \
    ROW(EGridENDLGR, "ENDLGR", INTE, -1, Plain)                                                                        \
    ROW(EGridLGRSGRID, "LGRSGRID", CHAR, 1, Plain)                                                                     \
    ROW(EGridLGRPARNT, "LGRPARNT", CHAR, -1, Text)                                                                     \
    ROW(EGridLGR, "LGR", CHAR, -1, Text)                                                                               \
    ROW(EGridENDGRID, "ENDGRID", INTE, -1, Plain)                                                                      \
    ROW(EGridGRIDHEAD, "GRIDHEAD", INTE, 100, Own)                                                                     \
    ROW(GridGRIDUNIT, "GRIDUNIT", CHAR, 2, Own)                                                                        \
    ROW(GridMAPAXES, "MAPAXES", REAL, 6, Own)                                                                          \
    ROW(GridMAPUNITS, "MAPUNITS", CHAR, 1, Text)                                                                       \
    ROW(EGridFILEHEAD, "FILEHEAD", INTE, 100, Own)

/// Second records of some of those keywords, for programs that write them or read them in another shape.
#define MRLIO_GRID_KEYWORD_VARIANTS(ROW)                                                                               \
    ROW(EGridLGRLong, "LGR", C0nn, -1, Own)                                                                            \
    ROW(GridLGR, "LGR", CHAR, 2, Own)                                                                                  \
    ROW(EGridNNCHEAD, "NNCHEAD", INTE, 10, Own)                                                                        \
    ROW(EGridNNC1, "NNC1", INTE, -1, Array)                                                                            \
    ROW(EGridNNC2, "NNC2", INTE, -1, Array)                                                                            \
    ROW(EGridNNCL, "NNCL", INTE, -1, Array)                                                                            \
    ROW(EGridNNCG, "NNCG", INTE, -1, Array)                                                                            \
    ROW(EGridNNCHEADA, "NNCHEADA", INTE, 10, Own)                                                                      \
    ROW(EGridNNA1, "NNA1", INTE, -1, Array)                                                                            \
    ROW(EGridNNA2, "NNA2", INTE, -1, Array)
