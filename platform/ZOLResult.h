// Result codes of the HRESULT style, by name.
#pragma once
#include <cstdint>

typedef int32_t HRESULT;

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001u);
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFu);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);

/// 1 when hr is a success code (0 or positive).
constexpr bool SUCCEEDED(HRESULT hr) { return hr >= 0; }
/// 1 when hr is a failure code (negative).
constexpr bool FAILED(HRESULT hr) { return hr < 0; }
