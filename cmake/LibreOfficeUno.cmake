# LibreOffice's UNO libraries (Debian: libreoffice-dev) as target LibreOffice::uno, with headers for the types that the
# office plug-in names and for all that these need.
set(LO_HOME /usr/lib/libreoffice CACHE PATH "Where LibreOffice is installed: the folder that holds program and sdk")
find_program(LO_CPPUMAKER cppumaker PATHS ${LO_HOME}/sdk/bin NO_DEFAULT_PATH REQUIRED)
find_path(LO_INCLUDE sal/config.h PATHS ${LO_HOME}/sdk/include NO_DEFAULT_PATH REQUIRED)

set(lo_types
    awt.XToolkit awt.XWindow2 awt.XWindowPeer beans.XMultiPropertySet beans.XPropertySet bridge.UnoUrlResolver
    container.XNamed document.MacroExecMode document.UpdateDocMode drawing.FillStyle drawing.LineStyle
    drawing.PointSequenceSequence drawing.XDrawPagesSupplier frame.Desktop frame.XModel frame.XStorable frame.XTitle
    lang.DisposedException lang.XComponent lang.XMultiServiceFactory lang.XTypeProvider reflection.XTypeDescription
    sheet.CellFlags sheet.FormulaResult sheet.XCellAddressable sheet.XCellRangeAddressable sheet.XCellRangeData
    sheet.XCellRangeMovement sheet.XCellRangesQuery sheet.XSpreadsheet sheet.XSpreadsheetDocument
    sheet.XUniqueCellFormatRangesSupplier table.CellHoriJustify table.CellVertJustify2 table.XColumnRowRange text.XTextRange task.XInteractionAbort task.XInteractionHandler uno.DeploymentException uno.XAggregation
    uno.XComponentContext uno.XWeak util.Date util.NumberFormat util.XCloseable util.XMergeable
    util.XNumberFormatTypes
    util.XNumberFormatsSupplier)
list(TRANSFORM lo_types PREPEND com.sun.star.)
set(lo_registries ${LO_HOME}/program/types.rdb ${LO_HOME}/program/types/offapi.rdb)
set(lo_headers ${CMAKE_BINARY_DIR}/uno-headers)
add_custom_command(OUTPUT ${lo_headers}/made
    COMMAND ${CMAKE_COMMAND} -E make_directory ${lo_headers}
    COMMAND ${LO_CPPUMAKER} -Gc -O${lo_headers} "-T${lo_types}" ${lo_registries}
    COMMAND ${CMAKE_COMMAND} -E touch ${lo_headers}/made
    DEPENDS ${lo_registries} ${CMAKE_CURRENT_LIST_FILE} VERBATIM)
add_custom_target(uno_headers DEPENDS ${lo_headers}/made)

add_library(libreoffice_uno INTERFACE)
add_library(LibreOffice::uno ALIAS libreoffice_uno)
add_dependencies(libreoffice_uno uno_headers)
target_include_directories(libreoffice_uno SYSTEM INTERFACE ${LO_INCLUDE} ${lo_headers})
target_compile_definitions(libreoffice_uno INTERFACE LINUX UNX CPPU_ENV=gcc3)
target_link_libraries(libreoffice_uno INTERFACE
    ${LO_HOME}/sdk/lib/libuno_cppuhelpergcc3.so ${LO_HOME}/sdk/lib/libuno_cppu.so
    ${LO_HOME}/sdk/lib/libuno_salhelpergcc3.so ${LO_HOME}/sdk/lib/libuno_sal.so)
# The libraries find each other, and their services, in LibreOffice's program folder.
target_link_options(libreoffice_uno INTERFACE -Wl,-rpath,${LO_HOME}/program)
