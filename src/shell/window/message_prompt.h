#pragma once

// The message boxes of the running program, over the window that is in front.

#include "base/prompt.h"

class MessagePrompt : public Prompt
{
public:
    void Inform(const QString& text) override;
    void InformOrCancel(const QString& text) override;
    void InformFault(const QString& text) override;
    void Warn(const QString& text) override;
    bool Ask(const QString& text) override;
    Choice Choose(const QString& text, const QString& first, const QString& second) override;
    void Error(const QString& text) override;
    QString AskFile(const QString& title, const QString& filters) override;
    bool showsBusy() const override { return true; }
    void Busy(bool busy) override;
};
