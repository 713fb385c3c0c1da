// Makes the codec of each new parser.
#pragma once

class ZOLAnnStandardXMLParserCodec;

class ZOLAnnStandardXMLParserCodecFactory {
public:
  virtual ~ZOLAnnStandardXMLParserCodecFactory() = default;
  /// A new codec that the caller owns, or null.
  virtual ZOLAnnStandardXMLParserCodec* CreateCodec() = 0;
};
