"""The printed forms as data: what each bill's page says and which grid columns it shows.

Sheet column j receives column j of the bill's grid, so every column of the grid is named here, shown or not; a shown
one has its least width in millimetres. A text may hold tokens ("?单据编号"), which the program replaces in a fixed
order, each everywhere in the cell: what follows a token must not make another of it.
"""

from dataclasses import dataclass, replace

REST = ["生产厂商", "品牌", "批号", "生产日期", "有效日期", "唯一码", "自定义字段1", "自定义字段2", "自定义字段3", "备注"]
FIGURES = {"数量", "成本价", "金额", "调价金额"}
MONEY = {"金额", "调价金额"}
BARCODE = "条形码"
SHORT = {BARCODE, "单位", "批号"}
WRAPPED = {"商品名称", "规格", "属性", "备注"}


def grid(*figures):
    return ["商品编号", "商品名称", "规格", "属性", "单位", *figures, *REST]


COUNTED = grid("数量", "成本价", "金额")
REVALUED = grid("调价金额")

WIDE = {"商品编号": 24, "商品名称": 52, "规格": 28, "属性": 34, "单位": 12, "数量": 22, "成本价": 22, "金额": 26,
        "批号": 23, "备注": 26}


@dataclass(frozen=True)
class Form:
    """A page from top to bottom. `head` and `foot` are rows of fields, each a text and its share of the row."""

    file: str
    title: str
    columns: list
    shown: dict
    head: list
    totals: dict
    foot: list
    signatures: list
    folder: str = "fixed"
    list_title: str = ""
    style_word: str = ""
    line_height: float = 8.5
    note: str = ""


def row(*fields):
    """Fields of one row; a plain text takes one share."""
    return [f if isinstance(f, tuple) else (f, 1) for f in fields]


CURRENCY = "币种 / 汇率：?币种　?汇率"
REMARKS = [row("备　　注：?备注"), row("附加说明：?附加说明")]
COUNT_TOTALS = {"数量": "?合计数量", "金额": "?合计金额"}
AUDITOR = "审核：?审核人"

TRANSFER = Form(
    "SP-TJDB", "同价调拨单", COUNTED, WIDE,
    head=[row("发货仓库：?发货仓库", "收货仓库：?收货仓库", CURRENCY)],
    totals=COUNT_TOTALS, foot=REMARKS,
    signatures=[row("制单：?制单", "业务员：?业务员", AUDITOR), row("发货人（签字）：", "收货人（签字）：", "记账（签字）：")])


def stocktake(file, title, warehouse):
    return Form(
        file, title, COUNTED, WIDE,
        head=[row(f"{warehouse}：?{warehouse}", "业务员：?业务员", CURRENCY)],
        totals=COUNT_TOTALS, foot=REMARKS,
        signatures=[row("制单：?制单", AUDITOR, "记账（签字）："),
                    row("盘点人（签字）：", "保管员（签字）：", "主管批准（签字）：")])


REVALUATION = Form(
    "SP-SPTJ", "商品调价单", REVALUED,
    {"商品编号": 24, "商品名称": 44, "规格": 24, "属性": 28, "单位": 12, "调价金额": 26, "备注": 26},
    head=[row("调价仓库：?调价仓库", "业务员：?业务员", CURRENCY)],
    totals={"调价金额": "?合计金额"}, foot=REMARKS,
    signatures=[row("制单：?制单", AUDITOR, "记账（签字）："),
                row("经办人（签字）：", "财务（签字）：", "主管批准（签字）：")],
    note="调价金额：正数为增加库存金额，负数为减少库存金额。")


def product_head(act):
    """The product of an assembly (act 组装) or disassembly (act 拆卸). Its spec and attribute have one pair of tokens
    for both: those of 拆卸 print the warehouses."""
    return [
        row((f"{act}商品：?{act}商品", 2), "规格：?组装的商品的规格", "属性：?组装的商品的属性"),
        row(f"{act}数量：?{act}数量　?计量单位", "单件成本：?单件成本", f"{act}费用：?{act}费用", "合计金额：?合计金额"),
        row("发出仓库：?发出仓库", "收存仓库：?收存仓库", "业务员：?业务员", CURRENCY),
        row((f"生产 / 有效日期：?{act}的商品的生产日期　?{act}的商品的有效日期", 5),
            (f"厂商 / 品牌：?{act}的商品的生产厂商　?{act}的商品的品牌", 4),
            (f"批号 / 唯一码：?{act}的商品的批号　?{act}的商品的唯一码", 3),
            (f"自定义：?{act}的商品的自定义1　?{act}的商品的自定义2　?{act}的商品的自定义3", 4)),
    ]


def assembly(file, act, sum_of_money, remark):
    return Form(
        file, f"商品{act}单", COUNTED, WIDE,
        head=product_head(act), totals={"金额": f"?{act}商品金额合计"}, foot=[row(text) for text in sum_of_money],
        signatures=[row("制单：?制单", AUDITOR, "记账（签字）："),
                    row("发料人（签字）：", f"{act}人（签字）：", "收存人（签字）：")],
        list_title=f"{act}商品清单", note=remark)


PLAIN = [
    assembly("SP-ZZSP", "组装",
             ["成本构成：清单金额 ?组装商品金额合计　＋　组装费用 ?组装费用　＝　合计金额 ?合计金额"],
             "清单中的商品数量是指组成所有商品所需要的其他商品数量。"),
    assembly("SP-CXSP", "拆卸",
             ["成本构成：合计金额 ?合计金额　＋　拆卸费用 ?拆卸费用　＝　清单金额 ?拆卸商品金额合计"],
             "清单中的商品数量是指拆卸商品所拆分出来的其他所有商品数量。"),
    TRANSFER,
    REVALUATION,
    stocktake("SP-PDBS", "盘点报损单", "报损仓库"),
    stocktake("SP-PDBY", "盘点报溢单", "报溢仓库"),
]


def with_barcode(form, suffix, style_word, width, gone, **more):
    """The form with the good's barcode before its columns; the columns `gone` give way to it."""
    shown = {name: min(millimetres, 48) for name, millimetres in form.shown.items() if name not in gone}
    return replace(form, file=form.file + suffix, style_word=style_word, columns=[BARCODE, *form.columns],
                   shown={BARCODE: width, **shown}, **more)


def fixed_forms():
    """Each bill's page plain, with the barcode in digits, and with the barcode as a picture."""
    for form in PLAIN:
        yield form
        gone = {"批号"} if "批号" in form.shown else {"属性"}
        yield with_barcode(form, "-TXM-S", "首列打印数字条形码", 30, gone)
        # The program draws the bars, as wide as the column has room for them.
        yield with_barcode(form, "-TXM-T", "首列打印图形条形码", 52, {"批号", "属性"}, line_height=12)


DELIVERY = Form(
    "transfer_delivery", "调拨送货单", COUNTED,
    {"商品编号": 24, "商品名称": 50, "规格": 36, "单位": 14, "数量": 26, "备注": 30},
    head=[row("发货仓库：?发货仓库", "收货仓库：?收货仓库")],
    totals={"数量": "?合计数量"}, foot=[row("备　　注：?备注"), row("送货说明：?附加说明")],
    signatures=[row("制单：?制单", "业务员：?业务员", "车牌号："),
                row("发货人（签字）：", "送货人（签字）：", "收货人（签字）：")],
    folder="demo", line_height=9,
    note="请当面点清数量并签收。　第一联　存根　　第二联　收货仓库　　第三联　回单")

WORK_ORDER = Form(
    "assembly_work_order", "组装拆卸作业单", COUNTED,
    {"商品编号": 24, "商品名称": 44, "规格": 28, "属性": 28, "单位": 12, "数量": 20, "备注": 28},
    head=[row(("商品名称：?组装商品", 2), "规格：?组装的商品的规格"),
          row("数量：?组装数量　?计量单位", "属性：?组装的商品的属性", "批号：?组装的商品的批号"),
          row("发出仓库：?发出仓库", "收存仓库：?收存仓库", "业务员：?业务员")],
    totals={}, foot=[row("质检记录：")],
    signatures=[row("制单：?制单", AUDITOR, "完工日期："),
                row("领料人（签字）：", "作业人（签字）：", "验收人（签字）：")],
    folder="demo", list_title="商品清单", line_height=9,
    note="本单不列金额，供车间领料、作业和交库使用。")

USER_FORMS = [DELIVERY, WORK_ORDER]
