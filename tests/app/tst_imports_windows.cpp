// SPDX-License-Identifier: MIT
// What the built program asks of the SDK library, by the names that the loader sees.
#include <QtCore/QFile>
#include <QtCore/QLibrary>
#include <QtCore/QStringList>
#include <QtCore/qt_windows.h>
#include <QtTest/QTest>

namespace {

/// The names of the library's four entry points, as the compiler decorates them.
#ifdef _MSC_VER
const QStringList entryPoints = {
    QStringLiteral("??0SDKLogger@ombrix_sdk@@QEAA@W4severity_level@1@@Z"),
    QStringLiteral("??1SDKLogger@ombrix_sdk@@QEAA@XZ"),
    QStringLiteral("?GetILogger@SDKLogger@ombrix_sdk@@QEAAAEAVILogger@2@XZ"),
    QStringLiteral("?get_instance@OmbrixSdk@ombrix_sdk@@SAPEAVIOmbrixSdk@2@XZ"),
};
#else
const QStringList entryPoints = {
    QStringLiteral("_ZN10ombrix_sdk9OmbrixSdk12get_instanceEv"),
    QStringLiteral("_ZN10ombrix_sdk9SDKLogger10GetILoggerEv"),
    QStringLiteral("_ZN10ombrix_sdk9SDKLoggerC1ENS_14severity_levelE"),
    QStringLiteral("_ZN10ombrix_sdk9SDKLoggerD1Ev"),
};
#endif

/// The program as it lies on the disk, laid out as in memory and not run.
class Image {
public:
    Image()
        : base(reinterpret_cast<char*>(LoadLibraryExW(
              reinterpret_cast<const wchar_t*>(QStringLiteral(TAVREL_PROGRAM).utf16()), nullptr,
              DONT_RESOLVE_DLL_REFERENCES)))
    {
        if (base == nullptr) {
            qFatal("the program cannot be read");
        }
    }
    ~Image() { FreeLibrary(reinterpret_cast<HMODULE>(base)); }
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    /// The functions imported from a library, sorted; none if it is not asked for by this name.
    [[nodiscard]] QStringList importedFrom(const char* library) const
    {
        const auto* const headers =
            at<IMAGE_NT_HEADERS>(static_cast<DWORD>(at<IMAGE_DOS_HEADER>(0)->e_lfanew));
        const auto& directories = headers->OptionalHeader.DataDirectory;
        QStringList names;
        for (auto* from = at<IMAGE_IMPORT_DESCRIPTOR>(
                 directories[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
             from->Name != 0; ++from) {
            if (qstrcmp(at<char>(from->Name), library) != 0) {
                continue;
            }
            for (auto* named = at<IMAGE_THUNK_DATA>(from->OriginalFirstThunk);
                 named->u1.AddressOfData != 0; ++named) {
                names.append(
                    QString::fromLatin1(at<IMAGE_IMPORT_BY_NAME>(named->u1.AddressOfData)->Name));
            }
        }
        names.sort();
        return names;
    }

private:
    template<typename Type> [[nodiscard]] Type* at(DWORD64 offset) const
    {
        return reinterpret_cast<Type*>(base + offset);
    }

    char* base;
};

} // namespace

class TestImports : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theProgramAsksTheLibraryForItsFourEntryPointsOnly()
    {
        QCOMPARE(Image().importedFrom("ombrix.sdk.dll"), entryPoints);
    }

    void theLibraryIsAskedForWithItsEnding()
    {
        // "ombrix.sdk" alone counts as a name with the ending "sdk", and nothing is found.
        QCOMPARE(Image().importedFrom("ombrix.sdk"), QStringList());
        QVERIFY(LoadLibraryA("ombrix.sdk") == nullptr);
        QVERIFY(LoadLibraryA("ombrix.sdk.dll") != nullptr);
        QVERIFY(QLibrary(QStringLiteral("ombrix.sdk")).load());
    }

    void theProgramBearsItsNameAndVersion()
    {
        const QString program = QStringLiteral(TAVREL_PROGRAM);
        const auto* const path = reinterpret_cast<const wchar_t*>(program.utf16());
        QByteArray block(static_cast<int>(GetFileVersionInfoSizeW(path, nullptr)), '\0');
        QVERIFY(GetFileVersionInfoW(path, 0, static_cast<DWORD>(block.size()), block.data()));
        const auto text = [&block](const wchar_t* name) {
            const std::wstring place = std::wstring(L"\\StringFileInfo\\040904b0\\") + name;
            void* value = nullptr;
            UINT length = 0;
            VerQueryValueW(block.data(), place.c_str(), &value, &length);
            return QString::fromWCharArray(static_cast<const wchar_t*>(value));
        };
        QCOMPARE(text(L"ProductName"), QStringLiteral("Tavrel KV"));
        QCOMPARE(text(L"ProductVersion"), QStringLiteral(TAVREL_BUILD_VERSION));
        QCOMPARE(text(L"FileVersion"), QStringLiteral(TAVREL_BUILD_VERSION));
        QCOMPARE(text(L"CompanyName"), QStringLiteral("Halvorn Technologies"));

        void* value = nullptr;
        UINT length = 0;
        QVERIFY(VerQueryValueW(block.data(), L"\\", &value, &length));
        const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
        QCOMPARE(QStringLiteral("%1.%2.%3")
                     .arg(HIWORD(fixed->dwFileVersionMS))
                     .arg(LOWORD(fixed->dwFileVersionMS))
                     .arg(HIWORD(fixed->dwFileVersionLS)),
                 QStringLiteral(TAVREL_BUILD_VERSION));
    }

    void theProgramHasAnIconInEverySizeOfTheDesktop_data()
    {
        QTest::addColumn<int>("size");
        for (const int size : {16, 32, 48}) {
            QTest::addRow("%d", size) << size;
        }
    }

    void theProgramHasAnIconInEverySizeOfTheDesktop()
    {
        QFETCH(int, size);
        const QString program = QStringLiteral(TAVREL_PROGRAM);
        HICON icon = nullptr;
        UINT id = 0;
        QCOMPARE(PrivateExtractIconsW(reinterpret_cast<const wchar_t*>(program.utf16()), 0, size,
                                      size, &icon, &id, 1, 0),
                 1U);
        QVERIFY(icon != nullptr);
        DestroyIcon(icon);
    }
};

QTEST_GUILESS_MAIN(TestImports)
#include "tst_imports_windows.moc"
