#include "app/frm_startup.h"

#include <algorithm>

#include "common/conversions.h"

namespace zendor {

namespace {

constexpr ControlId Label1{"Label1"};
constexpr ControlId Label2{"Label2"};
constexpr ControlId cmdAccept{"cmdAccept"};
constexpr std::string_view kPortArray = "optCommPort";
constexpr ControlId optCommPort(int index) { return {kPortArray, index}; }
constexpr std::string_view kSerialPortMenu = "SerialPort";

constexpr const char* kLineSettings = "9600,N,8,1";
constexpr int kIdentityAttempts = 2;

// The same in every region. The library's function would follow the region, and a Turkish region
// has another capital for "i".
char upperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// The letter of a customer or an engineer pod, empty for any other type.
std::string resultPrefix(std::string type) {
  std::ranges::transform(type, type.begin(), upperCase);
  if (type == "CUSTOMER") return "C";
  if (type == "ENGINEER") return "E";
  return {};
}

Message failureBox(const std::string& text) {
  return {text, "Error", MessageIcon::Critical, MessageButtons::Ok};
}

}  // namespace

FormDescription frmStartup::description() {
  using enum ControlKind;
  const FormFont heading{.family = "Arial", .points = 13.8, .bold = true};
  const FormFont result{.family = "Arial", .points = 24, .bold = true};
  return {
      .caption = "Zendor Serial Number Extractor",
      .width = 5652,
      .height = 2952,
      .menus = {{.name = kSerialPortMenu, .caption = "&Port", .separators = 1}},
      // clang-format off
      .controls = {
          {.id = Label2, .kind = Label, .caption = "Your Zendor Serial Number is:",
           .description = "The serial number stands in the box below.",
           .rect = {240, 120, 5172, 372}, .tabIndex = 2, .font = heading, .centred = true},
          {.id = Label1, .kind = ResultBox, .caption = "Label1",
           .description = "The serial number that the last request has read.",
           .rect = {240, 720, 5172, 612}, .tabIndex = 1, .font = result, .centred = true},
          {.id = optCommPort(0), .kind = OptionButton, .caption = "Serial Port 1",
           .rect = {480, 1560, 1572, 372}, .tabIndex = 3, .selected = true},
          {.id = optCommPort(1), .kind = OptionButton, .caption = "Serial Port 2",
           .rect = {480, 1920, 1572, 372}, .tabIndex = 4},
          {.id = optCommPort(2), .kind = OptionButton, .caption = "Serial Port 3",
           .rect = {3720, 1560, 1572, 372}, .tabIndex = 5},
          {.id = optCommPort(3), .kind = OptionButton, .caption = "Serial Port 4",
           .rect = {3720, 1920, 1572, 372}, .tabIndex = 6},
          {.id = cmdAccept, .kind = PushButton, .caption = "Get Serial Number",
           .description = "Asks the pod on the chosen serial port for its serial number.",
           .rect = {120, 2400, 5292, 492}, .tabIndex = 0, .font = heading},
      },
      // clang-format on
  };
}

frmStartup::frmStartup(Form& form, SerialPort& port, Desktop& desktop, const Clock& clock,
                       const Regional& regional, const Version& version)
    : form_(form),
      desktop_(desktop),
      version_(version),
      reports_(desktop, regional),
      portControl_(port, desktop, reports_),
      transaction_(stores_, port, desktop, clock, portControl_, reports_, regional),
      commands_(transaction_),
      pod_(commands_, stores_) {}

void frmStartup::Form_Load() {
  form_.setCaption(description().caption + " V" + Tool_FormatDecimal(version_.majorNumber, 0) +
                   "." + Tool_FormatDecimal(version_.minorNumber, 0) + "." +
                   Tool_FormatDecimal(version_.revision, 0));
  form_.setMenuCaption(kSerialPortMenu, "Serial Port");
  portControl_.BaudRates = BaudRateList();
  PortOpened = false;
}

void frmStartup::Form_Activate() { form_.setCaption(Label1, ""); }

void frmStartup::Form_Unload() { desktop_.endProgram(); }

void frmStartup::Control_Click(const ControlId& control) {
  if (control == cmdAccept) cmdAccept_Click();
}

void frmStartup::cmdAccept_Click() {
  form_.setEnabled(cmdAccept, false);
  choosePort();
  form_.setCaption(Label1, "");
  if (!PortOpened) openPort();

  if (!pod_.Pod_IsAttached()) {
    desktop_.showMessage(failureBox("You Must Attach The Zendor!"));
    closePort();
    form_.setEnabled(cmdAccept, true);
    form_.setFocus(cmdAccept);
    return;
  }

  std::int32_t serialNumber = 0;
  const std::string type =
      pod_.Pod_ReadIdentity(serialNumber, kIdentityAttempts, kPodAddress, kHostAddress);
  const std::string prefix = resultPrefix(type);
  if (prefix.empty()) endOnFaultyPod();
  form_.setCaption(Label1, prefix + "-" + Tool_FormatDecimal(serialNumber, 0));
  form_.setEnabled(cmdAccept, true);
  closePort();
}

void frmStartup::choosePort() {
  const auto chosen = form_.selectedIndex(kPortArray);
  if (chosen) PortNumber = static_cast<std::uint8_t>(*chosen + 1);
}

void frmStartup::openPort() {
  if (!portControl_.Port_InitialiseSerialPort(PortNumber, kLineSettings)) desktop_.endProgram();
  // The user has been told of a refusal by then.
  if (portControl_.Port_SetOpen(true, true) != PortStatus::Switched) desktop_.endProgram();
  PortOpened = true;
}

void frmStartup::closePort() {
  PortOpened = false;
  portControl_.Port_SetOpen(false, false);
}

void frmStartup::endOnFaultyPod() {
  desktop_.showMessage(failureBox("You Zendor maybe Faulty"));
  desktop_.endProgram();
}

}  // namespace zendor
