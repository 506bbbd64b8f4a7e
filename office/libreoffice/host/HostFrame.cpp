#include "office/libreoffice/host/HostFrame.h"

#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XSystemChildFactory.hpp>
#include <com/sun/star/frame/Frame.hpp>
#include <com/sun/star/lang/SystemDependent.hpp>

namespace mergeloom::libreoffice {

HostFrame::HostFrame(OfficeConnection& connection, const HostWindow& window) {
    const Reference<css::awt::XSystemChildFactory> factory(css::awt::Toolkit::create(connection.context()),
                                                           UNO_QUERY_THROW);
    const css::uno::Any parent(static_cast<sal_Int64>(window.id));
    container_.set(factory->createSystemChild(parent, {}, css::lang::SystemDependent::SYSTEM_XWINDOW),
                   UNO_QUERY_THROW);
    resize(window.width, window.height);
    frame_.set(css::frame::Frame::create(connection.context()), UNO_QUERY_THROW);
    frame_->initialize(container_);
    connection.desktop()->getFrames()->append(frame_);
    container_->setVisible(true);
}

bool HostFrame::isOpen() const try {
    return frame_->getController().is();
} catch (const css::uno::RuntimeException&) {
    return false;
}

void HostFrame::resize(int width, int height) const {
    container_->setPosSize(0, 0, width, height, css::awt::PosSize::POSSIZE);
}

}  // namespace mergeloom::libreoffice
