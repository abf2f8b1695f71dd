#pragma once

/// What a user may do: the numbers under which lst_permis keeps a permission group's values. They are
/// shared with the front-office program and never change.
namespace Permission {

enum Id {
    BackOffice = 0,          ///< to enter the back office at all; also the password change and "About"
    Shops = 10,              ///< table tab: shops
    Kassa = 11,              ///< table tab: cash registers
    GroupShops = 12,         ///< table tab: shop groups
    Goods = 13,              ///< table tab: goods
    GroupGoods = 14,         ///< table tab: goods groups
    GoodsShops = 15,         ///< table tab: goods of the shops
    Clients = 16,            ///< table tab: clients
    Discount = 17,           ///< table tab: discount levels
    Transactions = 18,       ///< table tab: receipt rows
    TypeTransactions = 19,   ///< table tab: kinds of receipt rows
    ZZvit = 20,              ///< table tab: shifts
    SlujbOp = 21,            ///< table tab: service cash operations
    DayUpdate = 22,          ///< table tab: days of the price update
    Tax = 23,                ///< table tab: tax groups
    Users = 24,              ///< users tab
    PermissionGroups = 26,   ///< permission groups tab
    Actions = 27,            ///< table tab: promotions
    Devices = 28,            ///< table tab: devices
    Service = 40,            ///< settings and creation of missing tables
    Cheks = 70,              ///< report: receipts
    ZReports = 71,           ///< report: Z-reports
    Articles = 72,           ///< report: goods sold
    Online = 73,             ///< report: statistics on line
    GoodsManagement = 100,   ///< many goods changed at once
    Sales = 101,             ///< sale of goods
    Finance = 102,           ///< cash moved between shops
    ActionsManagement = 103, ///< promotions management
    RegisterServer = 200,    ///< exchange with the register server
    ClientImport = 201,      ///< import of clients
    Comands = 202,           ///< launch commands
    PreviousImport = 203,    ///< import from the previous version's database
    ExportCsv = 220,         ///< export of a list
    ImportCsv = 221,         ///< import of a list
    Count = 400              ///< the ids are 0 to 399
};

/// Every other value is "view only".
enum Value {
    Denied = 0, ///< the action is hidden
    Full = 1    ///< editing commands are shown
};

} // namespace Permission
