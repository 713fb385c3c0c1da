// The default codec factory: the DOM codec of the std dialect.
#pragma once
#include "ZOLAnnStandardXMLParserCodecFactory.h"

class ZOLAnnStandardXMLParserDOMCodecFactory : public ZOLAnnStandardXMLParserCodecFactory {
public:
  /// A new DOM codec that the caller owns.
  ZOLAnnStandardXMLParserCodec* CreateCodec() override;
};
