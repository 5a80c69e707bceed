#include "office/password_watch.h"

#include "office/uno_text.h"

#include <com/sun/star/task/XInteractionAbort.hpp>

using namespace com::sun::star;

void PasswordWatch::handle(const uno::Reference<task::XInteractionRequest>& request)
{
    if (FromUno(request->getRequest().getValueTypeName()).contains("PasswordRequest"))
        m_wasAsked = true;
    for (const auto& answer : request->getContinuations())
        if (const uno::Reference<task::XInteractionAbort> abort(answer, uno::UNO_QUERY); abort.is())
            return abort->select();
}
