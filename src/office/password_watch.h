#pragma once

// What LibreOffice asks while it opens a file is declined; a question for a password is remembered.

#include <com/sun/star/task/XInteractionHandler.hpp>
#include <cppuhelper/implbase1.hxx>

class PasswordWatch final : public cppu::WeakImplHelper1<com::sun::star::task::XInteractionHandler>
{
public:
    void SAL_CALL
    handle(const com::sun::star::uno::Reference<com::sun::star::task::XInteractionRequest>& request) override;

    bool wasAsked() const { return m_wasAsked; }

private:
    bool m_wasAsked = false;
};
