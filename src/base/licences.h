// The licences of what others wrote and the program holds.
#ifndef TAGRIX_BASE_LICENCES_H
#define TAGRIX_BASE_LICENCES_H

namespace tagrix {

inline constexpr const wchar_t* kLicences =
    L"JSON for Modern C++\r\nCopyright \u00A9 2013-2022 Niels Lohmann (https://nlohmann.me), MIT License\r\n\r\n"
    L"Permission is hereby granted, free of charge, to any person obtaining a copy of this software and associated "
    L"documentation files (the \"Software\"), to deal in the Software without restriction, including without "
    L"limitation the rights to use, copy, modify, merge, publish, distribute, sublicense, and/or sell copies of the "
    L"Software, and to permit persons to whom the Software is furnished to do so, subject to the following conditions:"
    L"\r\n\r\nThe above copyright notice and this permission notice shall be included in all copies or substantial "
    L"portions of the Software.\r\n\r\n"
    L"THE SOFTWARE IS PROVIDED \"AS IS\", WITHOUT WARRANTY OF ANY KIND, EXPRESS OR IMPLIED, INCLUDING BUT NOT LIMITED "
    L"TO THE WARRANTIES OF MERCHANTABILITY, FITNESS FOR A PARTICULAR PURPOSE AND NONINFRINGEMENT. IN NO EVENT SHALL "
    L"THE AUTHORS OR COPYRIGHT HOLDERS BE LIABLE FOR ANY CLAIM, DAMAGES OR OTHER LIABILITY, WHETHER IN AN ACTION OF "
    L"CONTRACT, TORT OR OTHERWISE, ARISING FROM, OUT OF OR IN CONNECTION WITH THE SOFTWARE OR THE USE OR OTHER "
    L"DEALINGS IN THE SOFTWARE.";

}  // namespace tagrix

#endif
