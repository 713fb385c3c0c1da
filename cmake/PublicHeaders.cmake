# The installed headers, by name: what a user of the library may include, flat in
# include/QelStandardInfra. Internals of the platform layer go to platform/detail/, which is never
# installed. Every other header under include/ and platform/ must be listed here, so that a new
# one is a decision and not an accident of a glob.
set(QELSTD_PUBLIC_HEADER_NAMES
  include/ZOLAnnStandardServices.h
  include/ZOLAnnStandardXMLNode.h
  include/ZOLAnnStandardXMLParser.h
  include/ZOLAnnStandardXMLParserCodec.h
  include/ZOLAnnStandardXMLParserCodecFactory.h
  include/ZOLAnnStandardXMLParserDOMCodecFactory.h
  include/ZOLAnnStandardXMLValue.h
  include/ZOLDftBuiltinStandards.h
  include/ZOLDftStandardServices.h
  include/ZOLDftStandardValueType.h
  include/ZOLDftStdNamespace.h
  include/ZOLDftStdPersistence.h
  include/ZOLDftStyleToolbox.h
  include/ZOLDftXMLNodeID.h
  include/ZOLDftXMLNodeIterator.h
  include/ZOLDrwParseParameter.h
  include/ZOLDrwParseStandard.h
  include/ZOLDrwParseStandardUpgradeOptions.h
  include/ZOLDrwStdSheetFormat.h
  include/ZOLDrwStdSheetStyle.h
  include/ZOLFormatOrientationsType.h
  include/ZOLIDftStandard.h
  include/ZOLIDftStyle.h
  include/ZOLIDftStyleManager.h
  include/ZOLIDrwStandard.h
  include/ZOLIQelStandard.h
  include/ZOLIQelStandardCommunication.h
  include/ZOLIQelStandardContent.h
  include/ZOLIStandardManager.h
  include/ZOLIStandardObject.h
  include/ZOLIStandardValue.h
  include/ZOLListValZOLDrwStdSheetStyle.h
  include/ZOLListValZOLIStandardObject_var.h
  include/ZOLVotDftStyle.h
  include/QelStandardServices.h
  include/QelStdToleranceDescription.h
  include/QelStdUnitDescription.h
  include/ZOLQelLocalStandardAttributes.h
  include/LocalValue.h
  include/ZOLIQelLocalStandard.h
  include/ZOLIQelLocalStdManager.h
  include/ZOLIQelLocalStyle.h
  include/ZOLQelLocalStandardFactory.h
  include/ZOLQelLocalValueSlots.h
  include/ZOLAnnStdEngineeringSymbolsServices.h
  platform/ZOLBaseUnknown.h
  platform/ZOLClassDictionary.h
  platform/ZOLExtension.h
  platform/ZOLFile.h
  platform/ZOLGUID.h
  platform/ZOLIDftElementWithStandard.h
  platform/ZOLIDftElementWithStyle.h
  platform/ZOLIVisProperties.h
  platform/ZOLISpecAttrAccess.h
  platform/ZOLISpecObject.h
  platform/ZOLIUnknownList.h
  platform/ZOLListValZOLUnicodeString.h
  platform/ZOLMetaClass.h
  platform/ZOLOmxJsonObject.h
  platform/ZOLOsmDocument.h
  platform/ZOLOsmSUHandler.h
  platform/ZOLQelInstCount.h
  platform/ZOLQelVisuEventsToolbox.h
  platform/ZOLRefCounted.h
  platform/ZOLResult.h
  platform/ZOLStdServices.h
  platform/ZOLString.h
  platform/ZOLSysLog.h
  platform/ZOLTIE.h
  platform/ZOLTrace.h
  platform/ZOLUnicodeString.h
  platform/ZOLVar.h
  platform/ZOLVisPropertiesValues.h
  platform/ZOLXMLDOM.h
  platform/ZOLXMLSAX.h
  platform/ZOLXMLSAXIds.h)

file(GLOB_RECURSE qelstd_found_headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
  ${PROJECT_SOURCE_DIR}/include/*.h
  ${PROJECT_SOURCE_DIR}/platform/*.h)
list(FILTER qelstd_found_headers EXCLUDE REGEX "^platform/detail/")
set(qelstd_unlisted ${qelstd_found_headers})
list(REMOVE_ITEM qelstd_unlisted ${QELSTD_PUBLIC_HEADER_NAMES})
if(qelstd_unlisted)
  list(SORT qelstd_unlisted)
  list(JOIN qelstd_unlisted "\n  " qelstd_unlisted)
  message(FATAL_ERROR "Headers that are neither listed as public nor internal:\n  ${qelstd_unlisted}\n"
    "List a public one in QELSTD_PUBLIC_HEADER_NAMES (cmake/PublicHeaders.cmake); "
    "move an internal one of the platform layer to platform/detail/.")
endif()

set(QELSTD_PUBLIC_HEADERS "")
foreach(header ${QELSTD_PUBLIC_HEADER_NAMES})
  if(NOT EXISTS ${PROJECT_SOURCE_DIR}/${header})
    message(FATAL_ERROR "Listed public header ${header} does not exist (cmake/PublicHeaders.cmake).")
  endif()
  list(APPEND QELSTD_PUBLIC_HEADERS ${PROJECT_SOURCE_DIR}/${header})
endforeach()
