#pragma once

// The keys of a window, in a list to be looked at.

#include <QDialog>
#include <vector>

struct KeyLine
{
    QString keys;
    QString does;
};

class frmKeys : public QDialog
{
public:
    frmKeys(const std::vector<KeyLine>& lines, QWidget* parent);
};
