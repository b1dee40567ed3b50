#pragma once

#include <xercesc/util/XercesDefs.hpp>

namespace XERCES_CPP_NAMESPACE {
class DOMDocument;
class DOMElement;
} // namespace XERCES_CPP_NAMESPACE
