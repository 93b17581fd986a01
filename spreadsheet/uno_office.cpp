// The spreadsheet program through UNO.
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/bridge/BridgeFactory.hpp>
#include <com/sun/star/connection/Connector.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/sheet/XCalculatable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <osl/file.hxx>
#include <rtl/bootstrap.hxx>

#include <chrono>
#include <cstddef>
#include <thread>

#include "spreadsheet/office_process.h"
#include "spreadsheet/spreadsheet.h"

#ifdef __SANITIZE_ADDRESS__
// The office's client libraries keep their descriptions of types until the end of the process.
extern "C" const char* __lsan_default_suppressions() { return "leak:libuno_\nleak:libgcc3_uno\n"; }
#endif

namespace tarvex {

namespace uno = com::sun::star::uno;
namespace beans = com::sun::star::beans;
namespace sheet = com::sun::star::sheet;
namespace table = com::sun::star::table;
namespace util = com::sun::star::util;
namespace frame = com::sun::star::frame;
namespace container = com::sun::star::container;

namespace {

constexpr auto longestStart = std::chrono::seconds(60);
constexpr auto startPoll = std::chrono::milliseconds(50);

rtl::OUString toOffice(const std::string& text) {
    return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

std::string fromOffice(const rtl::OUString& text) {
    const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

/// Runs calls of the program; whatever it throws becomes a failure of ours.
template <class Body>
auto asFailure(const char* what, Body&& body) {
    try {
        return body();
    } catch (const com::sun::star::lang::DisposedException& e) {
        throw OfficeFailure("LibreOffice закончился: " + fromOffice(e.Message));
    } catch (const uno::Exception& e) {
        throw Failure(std::string(what) + ": " + fromOffice(e.Message));
    }
}

template <class T>
beans::PropertyValue property(const char* name, T value) {
    beans::PropertyValue p;
    p.Name = rtl::OUString::createFromAscii(name);
    p.Value <<= value;
    return p;
}

uno::Reference<container::XNamed> named(const uno::Reference<sheet::XSpreadsheet>& s) {
    return {s, uno::UNO_QUERY_THROW};
}

/// A workbook whose cells are tied to an exchange sheet of our own behind its last one: the input cells take
/// their number from the first column there, and its second column repeats the output cells.  So a step is
/// one write of a range, one recalculation and one read of a range, wherever in the workbook the cells lie.
class OfficeWorkbook final : public Workbook {
public:
    OfficeWorkbook(const uno::Reference<com::sun::star::lang::XComponent>& document, int sheets)
        : document_(document) {
        book_.set(document, uno::UNO_QUERY);
        calculation_.set(document, uno::UNO_QUERY);
        if (!book_.is() || !calculation_.is()) throw FileFailure("файл - не таблица");
        const uno::Reference<beans::XPropertySet> settings(document, uno::UNO_QUERY_THROW);
        settings->setPropertyValue("IsUndoEnabled",
                                   uno::Any(false));  // or every step would be kept for undoing
        const uno::Reference<sheet::XSpreadsheets> all = book_->getSheets();
        const uno::Reference<container::XIndexAccess> byNumber(all, uno::UNO_QUERY_THROW);
        const sal_Int32 count = byNumber->getCount();
        if (count < sheets) throw FileFailure("листов в таблице только " + std::to_string(count));
        for (sal_Int32 i = 0; i < count; ++i)
            sheets_.emplace_back(byNumber->getByIndex(i), uno::UNO_QUERY_THROW);
        rtl::OUString name = "tarvex exchange";
        while (all->hasByName(name)) name += "_";
        all->insertNewByName(name, static_cast<sal_Int16>(count));
        exchange_.set(all->getByName(name), uno::UNO_QUERY_THROW);
        calculation_->calculateAll();
    }

    ~OfficeWorkbook() override {
        try {
            const uno::Reference<util::XCloseable> closing(document_, uno::UNO_QUERY);
            if (closing.is()) closing->close(true);
        } catch (const uno::Exception&) {
            // the program has gone, and the workbook with it
        }
    }

    std::vector<CellValue> calculate(const std::vector<Cell>& inputs, const std::vector<double>& values,
                                     const std::vector<Cell>& outputs) override {
        if (values.size() != inputs.size()) throw Failure("значений не столько, сколько ячеек");
        return asFailure("таблица не вычисляется", [&] {
            if (inputs != inputs_ || outputs != outputs_) tie(inputs, outputs);
            if (written_.is()) write(values);
            calculation_->calculate();
            return outputs.empty() ? std::vector<CellValue>{} : read();
        });
    }

private:
    uno::Reference<table::XCell> cell(const Cell& c) const {
        if (c.sheet < 1 || c.sheet > static_cast<int>(sheets_.size()))
            throw SubscriptFailure("нет в таблице листа " + std::to_string(c.sheet));
        const auto range = sheets_[c.sheet - 1]->getCellRangeByName(toOffice(c.name));
        return range->getCellByPosition(0, 0);
    }

    /// A reference to a cell as formulas write it: $'Name of the sheet'.D39
    rtl::OUString reference(const uno::Reference<sheet::XSpreadsheet>& s,
                            const rtl::OUString& cellName) const {
        const rtl::OUString quoted = named(s)->getName().replaceAll("'", "''");
        return "=$'" + quoted + "'." + cellName;
    }

    void tie(const std::vector<Cell>& inputs, const std::vector<Cell>& outputs) {
        inputs_.clear();
        outputs_.clear();
        written_.clear();
        read_.clear();
        for (std::size_t i = 0; i < inputs.size(); ++i)
            cell(inputs[i])->setFormula(reference(exchange_, "A" + rtl::OUString::number(i + 1)));
        for (std::size_t i = 0; i < outputs.size(); ++i) {
            cell(outputs[i]);  // a name or number that is none is told here
            exchange_->getCellByPosition(1, static_cast<sal_Int32>(i))
                ->setFormula(reference(sheets_[outputs[i].sheet - 1], toOffice(outputs[i].name)));
        }
        if (!inputs.empty()) written_ = column(0, inputs.size());
        if (!outputs.empty()) read_ = column(1, outputs.size());
        inputs_ = inputs;
        outputs_ = outputs;
    }

    uno::Reference<sheet::XCellRangeData> column(sal_Int32 at, std::size_t rows) const {
        return {exchange_->getCellRangeByPosition(at, 0, at, static_cast<sal_Int32>(rows) - 1),
                uno::UNO_QUERY_THROW};
    }

    void write(const std::vector<double>& values) {
        uno::Sequence<uno::Sequence<uno::Any>> rows(static_cast<sal_Int32>(values.size()));
        auto* row = rows.getArray();
        for (const double value : values) {
            const uno::Any one(value);
            *row++ = uno::Sequence<uno::Any>(&one, 1);
        }
        written_->setDataArray(rows);
    }

    std::vector<CellValue> read() {
        std::vector<CellValue> all;
        for (const auto& row : read_->getDataArray()) {
            const uno::Any& value = row[0];
            double number = 0;
            rtl::OUString text;
            if (value >>= number) {
                all.emplace_back(number);
            } else if (value >>= text) {
                all.emplace_back(fromOffice(text));
            } else {
                throw Failure("ошибка в ячейке таблицы");
            }
        }
        return all;
    }

    uno::Reference<com::sun::star::lang::XComponent> document_;
    uno::Reference<sheet::XSpreadsheetDocument> book_;
    uno::Reference<sheet::XCalculatable> calculation_;
    uno::Reference<sheet::XSpreadsheet> exchange_;
    std::vector<uno::Reference<sheet::XSpreadsheet>> sheets_;
    std::vector<Cell> inputs_, outputs_;                    ///< the cells that are tied now
    uno::Reference<sheet::XCellRangeData> written_, read_;  ///< their columns on the exchange sheet
};

/// Tells of a wait for as long as it lives.
class BusyMark {
public:
    explicit BusyMark(const std::function<void(bool)>& busy) : busy_(busy) { busy_(true); }
    ~BusyMark() { busy_(false); }
    BusyMark(const BusyMark&) = delete;
    BusyMark& operator=(const BusyMark&) = delete;

private:
    const std::function<void(bool)>& busy_;
};

}  // namespace

struct SpreadsheetOffice::Running {
    Running() : process(TARVEX_OFFICE_PROGRAM) {
        const auto deadline = std::chrono::steady_clock::now() + longestStart;
        asFailure("нет связи с LibreOffice", [&] {
            while (!connect()) {
                if (!process.alive()) throw OfficeFailure("LibreOffice закончился при запуске");
                if (std::chrono::steady_clock::now() > deadline)
                    throw OfficeFailure("LibreOffice не отвечает на запуск");
                std::this_thread::sleep_for(startPoll);
            }
        });
    }

    /// Gives back what is held there and waits until the threads of the connection have ended, so that no
    /// message is on its way when the process is killed.
    ~Running() {
        try {
            loader.clear();
            const uno::Reference<com::sun::star::lang::XComponent> ending(bridge, uno::UNO_QUERY);
            bridge.clear();
            if (ending.is()) ending->dispose();
        } catch (const uno::Exception&) {
            // it has gone by itself
        }
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    /// The component context of this program; one serves every office it starts.
    static const uno::Reference<uno::XComponentContext>& localContext() {
        static const uno::Reference<uno::XComponentContext> context = [] {
            // Without the types of the office itself its objects would show none of their calls here.
            rtl::Bootstrap::set("URE_MORE_TYPES", "file://" TARVEX_OFFICE_PROGRAM "/types/offapi.rdb");
            return cppu::defaultBootstrap_InitialComponentContext();
        }();
        return context;
    }

    /// False while the program does not listen yet.
    bool connect() {
        try {
            const auto connection = com::sun::star::connection::Connector::create(localContext())
                                        ->connect(toOffice("pipe,name=" + process.pipe()));
            bridge = com::sun::star::bridge::BridgeFactory::create(localContext())
                         ->createBridge({}, "urp", connection, {});
        } catch (const com::sun::star::connection::NoConnectException&) {
            return false;
        }
        const uno::Reference<uno::XComponentContext> remote(
            bridge->getInstance("StarOffice.ComponentContext"), uno::UNO_QUERY_THROW);
        const auto desktop =
            remote->getServiceManager()->createInstanceWithContext("com.sun.star.frame.Desktop", remote);
        loader.set(desktop, uno::UNO_QUERY_THROW);
        process.connected();
        return true;
    }

    std::unique_ptr<Workbook> open(const std::filesystem::path& path, int sheets) {
        rtl::OUString url;
        osl::FileBase::getFileURLFromSystemPath(toOffice(std::filesystem::absolute(path).string()), url);
        return asFailure("таблица не открывается", [&]() -> std::unique_ptr<Workbook> {
            // As a template the file is neither locked nor changed.  What it brings along does nothing: no
            // macro runs, no link is followed.
            const beans::PropertyValue how[] = {
                property("Hidden", true), property("AsTemplate", true),
                property("MacroExecutionMode", com::sun::star::document::MacroExecMode::NEVER_EXECUTE),
                property("UpdateDocMode", com::sun::star::document::UpdateDocMode::NO_UPDATE)};
            const auto document = loader->loadComponentFromURL(url, "_blank", 0, {how, std::size(how)});
            if (!document.is()) throw FileFailure("не таблица: " + path.string());
            return std::make_unique<OfficeWorkbook>(document, sheets);
        });
    }

    OfficeProcess process;
    uno::Reference<com::sun::star::bridge::XBridge> bridge;  ///< the connection and its threads
    uno::Reference<frame::XComponentLoader> loader;
};

SpreadsheetOffice::SpreadsheetOffice() = default;
SpreadsheetOffice::~SpreadsheetOffice() = default;
void SpreadsheetOffice::onBusy(std::function<void(bool)> busy) { busy_ = std::move(busy); }
int SpreadsheetOffice::process() const { return running_ ? running_->process.id() : 0; }
bool SpreadsheetOffice::available() { return true; }

std::unique_ptr<Workbook> SpreadsheetOffice::open(const std::filesystem::path& path, int sheets) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) throw OpenFailure("нет файла " + path.string());
    const BusyMark mark(busy_);
    if (running_ && !running_->process.alive()) running_.reset();
    const bool used = running_ != nullptr;
    for (bool again = false;; again = true) {
        if (!running_) running_ = std::make_unique<Running>();
        try {
            return running_->open(path, sheets);
        } catch (const OfficeFailure&) {
            running_.reset();
            if (!used || again) throw;  // one that is just dying may still look alive: a fresh one is tried
        }
    }
}

}  // namespace tarvex
