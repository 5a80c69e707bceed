#pragma once

// Windows on screens of every size: none is larger than its screen, and what does not fit scrolls.

class QScrollArea;
class QWidget;

/// A window that is about to be shown is made to fit its screen, frame included.
void FitToScreen(QWidget& window);
/// Whatever in the area gets the focus comes into sight.
void KeepFocusInSight(QScrollArea& area);
