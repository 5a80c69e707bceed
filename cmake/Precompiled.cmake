# Headers that nearly every file includes, compiled once: of Qt Core and the standard library, the same with GoogleTest
# for the tests, and with Qt Widgets for the windows. A file still includes what it uses: scripts/lint.sh compiles
# without them.
set(core_headers <QDate> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QMap> <QString> <QStringList> <QVariant>
    <algorithm> <array> <cmath> <functional> <map> <memory> <optional> <ranges> <string> <utility> <vector>)
set(window_headers <QAction> <QApplication> <QCheckBox> <QComboBox> <QDialog> <QGridLayout> <QHeaderView> <QKeyEvent>
    <QLabel> <QLineEdit> <QMenu> <QPainter> <QPushButton> <QTableView> <QToolButton> <QVBoxLayout>)

# precompile(core TARGET): TARGET makes the headers of this kind; every later target of the kind takes them from it.
function(precompile kind target)
    get_property(maker GLOBAL PROPERTY precompiled_${kind})
    if(maker)
        target_precompile_headers(${target} REUSE_FROM ${maker})
        return()
    endif()
    set(headers ${core_headers})
    if(kind STREQUAL "tests")
        list(APPEND headers <gtest/gtest.h>)
    elseif(kind STREQUAL "windows")
        list(APPEND headers ${window_headers})
    endif()
    target_precompile_headers(${target} PRIVATE ${headers})
    set_property(GLOBAL PROPERTY precompiled_${kind} ${target})
endfunction()
