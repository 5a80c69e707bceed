#pragma once

// The tables as text: columns in the order of the positional inserts, each with its type behind a colon (none is
// text). A word with @ stands for a group of columns that several tables share.

struct SchemaGroup
{
    const char* name;
    const char* columns;
};

struct SchemaTableText
{
    const char* name;
    const char* key;
    const char* columns;
};

inline constexpr SchemaGroup kSchemaGroups[] = {
    {"@transfer", "Code Datee:day WarehouseCodeF WarehouseNameF Operator WarehouseCodeS WarehouseNameS Remark Explain "
                  "BillType State SumMoney:number"},
    {"@onePlace", "Code Datee:day Operator WarehouseCode WarehouseName Remark Explain BillType State"},
    {"@headEnd", "Report DateTimee:moment SaleMan MoneyName MoneyRate:number Auditing"},
    {"@attribute", "AttributeCode AttributeName UnionAmount:number Manufacturer Brand PCode SCDate YXDate OnlyCode "
                   "Auditing"},
    {"@custom", "Custom1 Custom2 Custom3"},
    {"@assembly", "Code Datee:day WarehouseCodeF WarehouseNameF WareCode WareName Operator Cost:number Amount:number "
                  "WarehouseCodeS WarehouseNameS Unite SumMoney:number BillType State Report Fee:number "
                  "AveragePrice:number DateTimee:moment StockInAmount:number SaleMan MoneyName MoneyRate:number "
                  "@attribute WareSpec @custom"},
    {"@line", "Num:int Datee:day BillCode WareCode WareName WareSpec Unite Amount:number"},
    {"@lineEnd", "DateTimee:moment StockInAmount:number MoneyName MoneyRate:number @attribute @custom"},
    {"@priced", "Price:number Moneyy:number"},
    {"@costed", "Remark AveragePrice:number"},
    {"@piece", "@line @priced Remark State AveragePrice:number @lineEnd"},
    {"@counted", "@line @costed State @lineEnd"},
    {"@sibling", "Code Datee:day WarehouseCode WarehouseName Operator ClientCode ClientName Remark BillType State "
                 "SumMoney:money Report DateTimee:moment SaleMan MoneyName MoneyRate:number Auditing"},
    {"@inbound", "@line @priced Moneyy_Discount:money @costed State @lineEnd"},
    {"@outbound", "@line @priced Moneyy_Discount:money Cost:number @costed State @lineEnd"},
    {"@tree", "Code Name ParentCode"},
    {"@headCell", "HeadAlign:int HeadFontName HeadFontSize HeadFontBold HeadFontItalic HeadFontUnderline "
                  "HeadForeColor:int"},
    {"@contentCell", "ContentAlign:int ContentFontName ContentFontSize ContentFontBold ContentFontItalic "
                     "ContentFontUnderline ContentForeColor:int"},
    {"@books", "AccountBook1:int AccountBook2:int AccountBook3:int"},
    {"@checks", "WLHS:int BMHS:int GRHS:int ZDYHS:int"},
};

inline constexpr SchemaTableText kSchemaTables[] = {
    // The bills of this module.
    {"TabSamePriceMove", "Code", "@transfer @headEnd"},
    {"TabDiffPriceMove", "Code", "@transfer MoneyBanlance:money @headEnd"},
    {"TabChangePrice", "Code", "@onePlace SumMoney:number MoneyBanlance:money @headEnd"},
    {"TabCheckLose", "Code", "@onePlace SumMoney:money @headEnd"},
    {"TabCheckOver", "Code", "@onePlace SumMoney:money @headEnd"},
    {"TabWareGroup", "Code", "@assembly"},
    {"TabWarePiece", "Code", "@assembly"},
    {"TabSamePriceMoveInf", "", "@counted"},
    {"TabDiffPriceMoveInf", "", "@line @priced @costed MoneyBanlance:money State @lineEnd"},
    {"TabChangePriceInf", "", "@line @priced @costed MoneyBanlance:money State lastAveragePrice:number @lineEnd"},
    {"TabCheckLoseInf", "", "@counted"},
    {"TabCheckOverInf", "", "@counted"},
    {"TabWareGroupInf", "", "@piece"},
    {"TabWarePieceInf", "", "@piece"},

    // The bills of the siblings, as far as stock and cost read them.
    {"TabInBill", "Code", "@sibling"},
    {"TabInCancleBill", "Code", "@sibling"},
    {"TabElseInBill", "Code", "@sibling InType"},
    {"TabOutBill", "Code", "@sibling"},
    {"TabOutCancleBill", "Code", "@sibling"},
    {"TabElseOutBill", "Code", "@sibling OutType"},
    {"TabInBillInf", "", "@inbound"},
    {"TabInCancleBillInf", "", "@inbound"},
    {"TabElseInBillInf", "", "@inbound"},
    {"TabOutBillInf", "", "@outbound"},
    {"TabOutCancleBillInf", "", "@outbound"},
    {"TabElseOutBillInf", "", "@outbound"},

    // Closings and what they leave behind.
    {"TabTurn", "", "Datee:day Operator"},
    {"TabTurnDay", "", "Datee:day Operator"},
    {"TabWarehouseTurn", "",
     "Num:int Datee:day WareCode WarehouseCode Amount:number Cost:number AveragePrice:number "
     "MoneyRate:number MoneyName OnlyCode AttributeCode WareSpec Manufacturer Brand PCode"},
    {"TabWarehouseAmountChange", "", "BillCode WarehouseCode WareCode Amount:number"},

    // Base data.
    {"TabWare", "Code",
     "Code Name Spec Unite SecondUnite UniteRelation:number ZJF TiaoXingCode AttributeCode "
     "CostStyle AmountQueryYN AveragePrice:number AccountantCode TypeCode"},
    {"TabWarehouseType", "Code", "@tree"},
    {"TabWareType", "Code", "@tree"},
    {"TabClientType", "Code", "@tree"},
    {"TabDepartmentType", "Code", "@tree"},
    {"TabAttribute", "Code", "@tree"},
    {"TabClient", "Code", "Code Name TypeCode"},
    {"TabProvide", "Code", "Code Name TypeCode"},
    {"TabStuff", "Code", "Code Name DepartmentCode"},
    {"TabMoneyType", "Name", "Name Rate:number IsBWB"},
    {"TabOutInType", "Name", "Name CalCostYN"},
    {"TabCompanyInf", "", "Name"},

    // Settings.
    {"TabDotSet", "Name", "Name Num:int"},
    {"TabSysSetNew", "Name", "Name IsAllow:int"},
    {"TabSysSet", "", "IsZero:int"},
    {"TabAccountAreaSet", "DateeM", "DateeM:int DateeD:int"},
    {"TabOperateRight", "",
     "UserName FunctionName AllowRead:int AllowEdit:int AllowDelete:int AllowPrint:int "
     "AllowAuditing:int"},
    {"TabCloudAccountLoginInf", "", "Account Account2 UserCode"},
    {"TabPrintMSHSet", "", "TabName ColOrder:int ColWidth:int ColElseName @headCell @contentCell"},
    {"TabExcelTable", "", "TabName TabType OrderBy:int TabInf:blob"},
    {"TabAutoBakPath", "", "PathName"},
    {"TabImg", "", "BillCode Type Img:blob"},

    // Accounting.
    {"TabWarrant", "Code",
     "Code Datee:day DateeY DateeM WarrantNum1:int AffixNum1:int WriteWarrant Auditing "
     "RecordAccountant BillType State SumDebtor:number SumLender:number JXCBillCode "
     "WarrantNum2:int AffixNum2:int WarrantNum3:int AffixNum3:int @books Type ZG ZD IsLoss:int"},
    {"TabWarrantInf", "",
     "Num:int Datee:day DateeY DateeM BillCode Summary AccountantCode AccountantName "
     "AccountantPath Debtor:money Lender:money State WarrantNum1:int WarrantNum2:int "
     "WarrantNum3:int @books Type WLHS BMHS GRHS Reserve1:number Reserve2:number ZDYHS "
     "MoneyName MoneyRate:number"},
    {"TabWriteAccountant", "", "DateeY DateeM State"},
    {"TabJXCAccount", "", "JXCTabName Item AccountCode AccountName FX IsFuShu IsWarrant:int @books WarrantType"},
    {"TabAccountantType", "Code", "@tree @checks FC:int"},
    {"TabAccountantNameSet", "Code", "Code:int Name Main:int"},
    {"TabWarrantTypeSet", "Name", "Name Zi"},
};
