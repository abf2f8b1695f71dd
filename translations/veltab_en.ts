<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="uk">
<context>
    <name>AccessRows</name>
    <message>
        <source>повний</source>
        <translation>full</translation>
    </message>
    <message>
        <source>перегляд</source>
        <translation>view</translation>
    </message>
    <message>
        <source>так</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>(немає)</source>
        <translation>(none)</translation>
    </message>
    <message>
        <source>Право</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Група магазинів: %1</source>
        <translation>Shop group: %1</translation>
    </message>
    <message>
        <source>Передача в магазин: %1</source>
        <translation>Sending to the shop: %1</translation>
    </message>
</context>
<context>
    <name>ActionAssignment</name>
    <message>
        <source>Невідомо, чи записано: сервер не відповів. Коли зв&apos;язок відновиться, перегляньте ще раз: буде видно, які товари вже мають цю акцію.</source>
        <translation>It is not known whether this was written: the server did not answer. When the connection is back, preview once more: it shows which goods have this promotion already.</translation>
    </message>
    <message>
        <source>Зупинено, у базу нічого не записано.</source>
        <translation>Stopped, nothing was written into the database.</translation>
    </message>
    <message>
        <source>Не вдалося, у базу нічого не записано.</source>
        <translation>This did not work, nothing was written into the database.</translation>
    </message>
    <message>
        <source>Акцію «%1» тим часом видалив хтось інший. Нічого не записано.</source>
        <translation>Somebody else has deleted the promotion “%1” meanwhile. Nothing was written.</translation>
    </message>
    <message>
        <source>Акцію «%1» тим часом змінив хтось інший. Нічого не записано: перегляньте ще раз.</source>
        <translation>Somebody else has changed the promotion “%1” meanwhile. Nothing was written: preview it once more.</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
    <message>
        <source>акцію знято</source>
        <translation>promotion taken off</translation>
    </message>
    <message>
        <source>призначено</source>
        <translation>assigned</translation>
    </message>
    <message>
        <source>пропущено: тим часом змінив хтось інший</source>
        <translation>left out: changed by somebody else meanwhile</translation>
    </message>
    <message>
        <source>Акцію знято: %1.</source>
        <translation>Promotion taken off: %1.</translation>
    </message>
    <message>
        <source>Акцію «%1» призначено: %2.</source>
        <translation>Promotion “%1” assigned: %2.</translation>
    </message>
    <message>
        <source>Пропущено, бо тим часом їх змінив хтось інший: %1.</source>
        <translation>Left out because somebody else has changed them meanwhile: %1.</translation>
    </message>
</context>
<context>
    <name>ActionEndEdit</name>
    <message>
        <source>Введіть дату.</source>
        <translation>Enter a date.</translation>
    </message>
</context>
<context>
    <name>ActionPanel</name>
    <message>
        <source>Діють &amp;у той самий час:</source>
        <translation>In &amp;force at the same time:</translation>
    </message>
    <message>
        <source>ті самі товари в інших магазинах: %1</source>
        <translation>the same goods in other shops: %1</translation>
    </message>
    <message>
        <source>жодна інша</source>
        <translation>no other one</translation>
    </message>
</context>
<context>
    <name>ActionPlan</name>
    <message>
        <source>акцію буде знято</source>
        <translation>promotion will be taken off</translation>
    </message>
    <message>
        <source>буде призначено</source>
        <translation>will be assigned</translation>
    </message>
    <message>
        <source>акції й так немає</source>
        <translation>has no promotion anyway</translation>
    </message>
    <message>
        <source>уже має цю акцію</source>
        <translation>has this promotion already</translation>
    </message>
    <message>
        <source>пропущено: товар заблоковано</source>
        <translation>left out: the item is blocked</translation>
    </message>
    <message>
        <source>пропущено: службова група товарів</source>
        <translation>left out: service group of goods</translation>
    </message>
    <message>
        <source>пропущено: магазин не має цього товару</source>
        <translation>left out: the shop does not have this item</translation>
    </message>
    <message>
        <source>Перегляд зупинено.</source>
        <translation>The preview was stopped.</translation>
    </message>
    <message>
        <source>Цю акцію вже видалив хтось інший. Виберіть іншу.</source>
        <translation>Somebody else has deleted this promotion already. Choose another one.</translation>
    </message>
    <message>
        <source>Нічого не зміниться.</source>
        <translation>Nothing will change.</translation>
    </message>
    <message>
        <source>Зміниться: %1 (різних товарів: %2, магазинів: %3).</source>
        <translation>Will change: %1 (different goods: %2, shops: %3).</translation>
    </message>
    <message>
        <source>Без акції й так: %1.</source>
        <translation>Without a promotion anyway: %1.</translation>
    </message>
    <message>
        <source>Уже мають цю акцію: %1.</source>
        <translation>Have this promotion already: %1.</translation>
    </message>
    <message>
        <source>Заблоковані: %1.</source>
        <translation>Blocked: %1.</translation>
    </message>
    <message>
        <source>Службові групи: %1.</source>
        <translation>Service groups: %1.</translation>
    </message>
    <message>
        <source>Магазини не мають товару: %1.</source>
        <translation>Shops do not have the item: %1.</translation>
    </message>
</context>
<context>
    <name>ActionTimes</name>
    <message>
        <source>Тип акції нічого не змінює в ціні.</source>
        <translation>The type of the promotion changes nothing in the price.</translation>
    </message>
    <message>
        <source>Не вибрано жодного дня тижня.</source>
        <translation>No day of the week is chosen.</translation>
    </message>
    <message>
        <source>Є дата початку, а дати закінчення немає.</source>
        <translation>There is a first day but no last day.</translation>
    </message>
    <message>
        <source>Закінчується раніше, ніж починається.</source>
        <translation>It ends before it begins.</translation>
    </message>
    <message>
        <source>Щоденний час закінчується раніше, ніж починається.</source>
        <translation>The daily hours end before they begin.</translation>
    </message>
    <message>
        <source>діє зараз</source>
        <translation>in force now</translation>
    </message>
    <message>
        <source>діє в інші години</source>
        <translation>in force at other hours</translation>
    </message>
    <message>
        <source>діє в інші дні</source>
        <translation>in force on other days</translation>
    </message>
    <message>
        <source>заплановано</source>
        <translation>planned</translation>
    </message>
    <message>
        <source>завершена</source>
        <translation>ended</translation>
    </message>
    <message>
        <source>вимкнена</source>
        <translation>off</translation>
    </message>
    <message>
        <source>щодня</source>
        <translation>every day</translation>
    </message>
    <message>
        <source>цілодобово</source>
        <translation>all day</translation>
    </message>
    <message>
        <source>без дат</source>
        <translation>without dates</translation>
    </message>
    <message>
        <source>Пн</source>
        <translation>Mon</translation>
    </message>
    <message>
        <source>Вт</source>
        <translation>Tue</translation>
    </message>
    <message>
        <source>Ср</source>
        <translation>Wed</translation>
    </message>
    <message>
        <source>Чт</source>
        <translation>Thu</translation>
    </message>
    <message>
        <source>Пт</source>
        <translation>Fri</translation>
    </message>
    <message>
        <source>Сб</source>
        <translation>Sat</translation>
    </message>
    <message>
        <source>Нд</source>
        <translation>Sun</translation>
    </message>
</context>
<context>
    <name>ActionUsage</name>
    <message>
        <source>товарів: %1, магазинів: %2</source>
        <translation>goods: %1, shops: %2</translation>
    </message>
    <message>
        <source>%1 – товарів: %2</source>
        <translation>%1 – goods: %2</translation>
    </message>
    <message>
        <source>і ще магазинів: %1</source>
        <translation>and more shops: %1</translation>
    </message>
</context>
<context>
    <name>ActionValueEdit</name>
    <message>
        <source>Введіть ціле число від 0 до %1.</source>
        <translation>Enter a whole number from 0 to %1.</translation>
    </message>
</context>
<context>
    <name>ActionWeek</name>
    <message>
        <source>Тиждень акції</source>
        <translation>Week of the promotion</translation>
    </message>
    <message>
        <source>Не діє ніколи: %1</source>
        <translation>Never in force: %1</translation>
    </message>
    <message>
        <source>Діє: %1, %2, %3</source>
        <translation>In force: %1, %2, %3</translation>
    </message>
</context>
<context>
    <name>ArticleCounts</name>
    <message>
        <source>Каси з кодом CashDrive %1 немає.</source>
        <translation>There is no register with the CashDrive code %1.</translation>
    </message>
    <message>
        <source>Код CashDrive %1 мають кілька кас: виправте його у вкладці &quot;Каси&quot;.</source>
        <translation>Several registers have the CashDrive code %1: correct it in the tab &quot;Каси&quot;.</translation>
    </message>
    <message>
        <source>Товару немає в базі.</source>
        <translation>The item is not in the database.</translation>
    </message>
    <message>
        <source>Дати %1.%2.%3 не буває.</source>
        <translation>There is no such day as %1.%2.%3.</translation>
    </message>
    <message>
        <source>Кількість поза межами.</source>
        <translation>The quantity is out of range.</translation>
    </message>
</context>
<context>
    <name>AttentionList</name>
    <message>
        <source>Каси без зв&apos;язку понад годину</source>
        <translation>Registers off line for more than an hour</translation>
    </message>
    <message>
        <source>Зміни, відкриті понад добу</source>
        <translation>Shifts open for more than a day</translation>
    </message>
    <message>
        <source>Закриті зміни, суми яких не сходяться (за %1 днів)</source>
        <translation>Closed shifts whose sums disagree (of %1 days)</translation>
    </message>
    <message>
        <source>Від&apos;ємні залишки</source>
        <translation>Negative stock</translation>
    </message>
    <message>
        <source>Акції, що закінчуються сьогодні</source>
        <translation>Promotions that end today</translation>
    </message>
    <message>
        <source>Товари без ціни</source>
        <translation>Goods without a price</translation>
    </message>
    <message>
        <source>Картки на заблокованому рівні</source>
        <translation>Cards on a blocked level</translation>
    </message>
</context>
<context>
    <name>BarcodeDialog</name>
    <message>
        <source>Список штрихкодів</source>
        <translation>List of barcodes</translation>
    </message>
    <message>
        <source>Вставте або відскануйте &amp;штрихкоди, кожен в окремому рядку. Рядок таблиці теж підходить: береться перше число з нього.</source>
        <translation>Paste or scan &amp;barcodes, one a line. A line of a table will do, too: its first number is taken.</translation>
    </message>
    <message>
        <source>В&amp;зяти</source>
        <translation>&amp;Take</translation>
    </message>
    <message>
        <source>О&amp;чистити</source>
        <translation>&amp;Clear</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>&amp;Cancel</translation>
    </message>
</context>
<context>
    <name>BoxReader</name>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
</context>
<context>
    <name>BulkForm</name>
    <message>
        <source>&amp;Група товарів:</source>
        <translation>Goo&amp;ds group:</translation>
    </message>
    <message>
        <source>Податко&amp;ва група:</source>
        <translation>Tax &amp;group:</translation>
    </message>
    <message>
        <source>За&amp;блоковані:</source>
        <translation>&amp;Blocked:</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>Назва, код або штрихкод; відсканований штрихкод іде до списку</source>
        <translation>Name, code or barcode; a scanned barcode goes to the list</translation>
    </message>
    <message>
        <source>Список штри&amp;хкодів…</source>
        <translation>&amp;List of barcodes…</translation>
    </message>
    <message>
        <source>О&amp;чистити умови</source>
        <translation>&amp;Clear the conditions</translation>
    </message>
    <message>
        <source>&amp;Що змінити:</source>
        <translation>&amp;Field to change:</translation>
    </message>
    <message>
        <source>Вгору чи вниз</source>
        <translation>Up or down</translation>
    </message>
    <message>
        <source>На скільки відсотків</source>
        <translation>By how many per cent</translation>
    </message>
    <message>
        <source>На скільки гривень</source>
        <translation>By how many hryvnias</translation>
    </message>
    <message>
        <source>Заокругле&amp;ння:</source>
        <translation>Rou&amp;nding:</translation>
    </message>
    <message>
        <source>&amp;Нове значення:</source>
        <translation>&amp;New value:</translation>
    </message>
    <message>
        <source>&amp;Яку ціну:</source>
        <translation>&amp;Kind of price:</translation>
    </message>
    <message>
        <source>Групи &amp;магазинів:</source>
        <translation>&amp;Shop groups:</translation>
    </message>
    <message>
        <source>П&amp;ріоритет:</source>
        <translation>Pri&amp;ority:</translation>
    </message>
    <message>
        <source>Де &amp;ціни немає:</source>
        <translation>Where there is none:</translation>
    </message>
    <message>
        <source>Лише те, що змін&amp;иться</source>
        <translation>Only what changes</translation>
    </message>
    <message>
        <source>Перег&amp;лянути</source>
        <translation>Previe&amp;w</translation>
    </message>
    <message>
        <source>З&amp;упинити</source>
        <translation>Stop quer&amp;y</translation>
    </message>
    <message>
        <source>Ціна на відсоток</source>
        <translation>Price by per cent</translation>
    </message>
    <message>
        <source>Ціна на суму</source>
        <translation>Price by an amount</translation>
    </message>
    <message>
        <source>підняти на</source>
        <translation>raise by</translation>
    </message>
    <message>
        <source>знизити на</source>
        <translation>lower by</translation>
    </message>
    <message>
        <source>Базова ціна товару</source>
        <translation>Base price of the item</translation>
    </message>
    <message>
        <source>Ціни груп магазинів</source>
        <translation>Prices of shop groups</translation>
    </message>
    <message>
        <source>пропустити</source>
        <translation>leave out</translation>
    </message>
    <message>
        <source>створити з чинної</source>
        <translation>make of the current one</translation>
    </message>
    <message>
        <source>Усі</source>
        <translation>All</translation>
    </message>
    <message>
        <source>Ні</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Так</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>У групи магазинів може не бути своєї ціни з цим пріоритетом. Її можна створити: від ціни, за якою магазини групи продають зараз.</source>
        <translation>A shop group may have no price of its own with this priority. It can be made: of the price at which the shops of the group sell now.</translation>
    </message>
    <message>
        <source>Усі групи товарів</source>
        <translation>All goods groups</translation>
    </message>
    <message>
        <source>Усі податкові групи</source>
        <translation>All tax groups</translation>
    </message>
    <message>
        <source>Усі групи магазинів</source>
        <translation>All shop groups</translation>
    </message>
    <message>
        <source>заблокувати</source>
        <translation>block</translation>
    </message>
    <message>
        <source>дозволити продаж</source>
        <translation>allow the sale</translation>
    </message>
    <message>
        <source>Виберіть значення</source>
        <translation>Choose a value</translation>
    </message>
    <message>
        <source>грн</source>
        <translation>UAH</translation>
    </message>
    <message>
        <source>До найближчої такої ціни, посередині — вгору; не нижче %1.</source>
        <translation>To the nearest such price, half way upwards; not below %1.</translation>
    </message>
    <message>
        <source>Нове значення отримають усі знайдені товари, крім пропущених.</source>
        <translation>All goods found get the new value, but for those left out.</translation>
    </message>
    <message>
        <source>базова</source>
        <translation>base</translation>
    </message>
    <message>
        <source>Виберіть хоча б одну групу магазинів.</source>
        <translation>Choose at least one shop group.</translation>
    </message>
    <message>
        <source>Зупиняється…</source>
        <translation>Stopping…</translation>
    </message>
</context>
<context>
    <name>BulkPlan</name>
    <message>
        <source>Ціна</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>Група товарів</source>
        <translation>Goods group</translation>
    </message>
    <message>
        <source>Податкова група</source>
        <translation>Tax group</translation>
    </message>
    <message>
        <source>Блокування</source>
        <translation>Blocked</translation>
    </message>
    <message>
        <source>Правило</source>
        <translation>Rule</translation>
    </message>
    <message>
        <source>буде змінено</source>
        <translation>will be changed</translation>
    </message>
    <message>
        <source>буде створено</source>
        <translation>will be created</translation>
    </message>
    <message>
        <source>буде змінено; заокруглення веде в інший бік</source>
        <translation>will be changed; the rounding goes the other way</translation>
    </message>
    <message>
        <source>нічого не зміниться</source>
        <translation>nothing will change</translation>
    </message>
    <message>
        <source>пропущено: немає ціни</source>
        <translation>left out: no price</translation>
    </message>
    <message>
        <source>пропущено: немає ціни групи</source>
        <translation>left out: no price of the group</translation>
    </message>
    <message>
        <source>пропущено: товар заблоковано</source>
        <translation>left out: the item is blocked</translation>
    </message>
    <message>
        <source>пропущено: від ціни нічого не лишиться</source>
        <translation>left out: nothing would be left of the price</translation>
    </message>
    <message>
        <source>пропущено: ціна була б понад %1</source>
        <translation>left out: the price would be above %1</translation>
    </message>
    <message>
        <source>пропущено: у групі вже є товар з таким правилом</source>
        <translation>left out: another item of the group has this rule</translation>
    </message>
    <message>
        <source>пропущено: у групі таке правило отримали б кілька товарів</source>
        <translation>left out: several items of the group would get this rule</translation>
    </message>
    <message>
        <source>Перегляд зупинено.</source>
        <translation>The preview was stopped.</translation>
    </message>
    <message>
        <source>є в залишках</source>
        <translation>is in stock</translation>
    </message>
    <message>
        <source>є в передачах у дорозі</source>
        <translation>is on the way between shops</translation>
    </message>
    <message>
        <source>Ні</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Так</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Нічого не зміниться.</source>
        <translation>Nothing will change.</translation>
    </message>
    <message>
        <source>Зміниться цін: %1 (різних товарів: %2).</source>
        <translation>Prices that will change: %1 (different goods: %2).</translation>
    </message>
    <message>
        <source>Зміниться товарів: %1.</source>
        <translation>Goods that will change: %1.</translation>
    </message>
    <message>
        <source>Сума цін: %1 → %2 (різниця %3).</source>
        <translation>Sum of the prices: %1 → %2 (difference %3).</translation>
    </message>
    <message>
        <source>З них буде створено (досі там діє ціна з іншого рядка): %1.</source>
        <translation>Of them to be created (so far another price is in force there): %1.</translation>
    </message>
    <message>
        <source>З них заокруглення веде в інший бік: %1.</source>
        <translation>Of them the rounding goes the other way: %1.</translation>
    </message>
    <message>
        <source>Без змін: %1.</source>
        <translation>Unchanged: %1.</translation>
    </message>
    <message>
        <source>Немає ціни: %1.</source>
        <translation>No price: %1.</translation>
    </message>
    <message>
        <source>Група не має своєї ціни: %1.</source>
        <translation>The group has no price of its own: %1.</translation>
    </message>
    <message>
        <source>Заблоковані: %1.</source>
        <translation>Blocked: %1.</translation>
    </message>
    <message>
        <source>Нічого не лишилося б: %1.</source>
        <translation>Nothing would be left: %1.</translation>
    </message>
    <message>
        <source>Завелика ціна: %1.</source>
        <translation>Price too high: %1.</translation>
    </message>
    <message>
        <source>Правило вже має інший товар групи: %1.</source>
        <translation>Another item of the group has the rule: %1.</translation>
    </message>
    <message>
        <source>Правило отримали б кілька товарів групи: %1.</source>
        <translation>Several items of the group would get the rule: %1.</translation>
    </message>
    <message>
        <source> (пріоритет %1)</source>
        <translation> (priority %1)</translation>
    </message>
</context>
<context>
    <name>BulkPrice</name>
    <message>
        <source>до копійки</source>
        <translation>to the kopeck</translation>
    </message>
    <message>
        <source>до .%1</source>
        <translation>to .%1</translation>
    </message>
    <message>
        <source>%1 грн</source>
        <translation>%1 UAH</translation>
    </message>
</context>
<context>
    <name>BulkWriter</name>
    <message>
        <source>Невідомо, чи записано: сервер не відповів. Коли зв&apos;язок відновиться, перегляньте ще раз: буде видно, що змінилося.</source>
        <translation>It is not known whether this was written: the server has not answered. When the connection is back, preview once more: you will see what has changed.</translation>
    </message>
    <message>
        <source>Зупинено, у базу нічого не записано.</source>
        <translation>Stopped, nothing was written into the database.</translation>
    </message>
    <message>
        <source>Не вдалося, у базу нічого не записано.</source>
        <translation>This did not work, nothing was written into the database.</translation>
    </message>
    <message>
        <source>Звірка з базою</source>
        <translation>Comparing with the database</translation>
    </message>
    <message>
        <source>не повернуто: змінив хтось інший</source>
        <translation>not put back: changed by somebody else</translation>
    </message>
    <message>
        <source>Скасувати не можна, нічого не записано: після вас дещо змінив хтось інший (%1): %2%3.</source>
        <translation>This cannot be undone, nothing was written: somebody else has changed some of it since (%1): %2%3.</translation>
    </message>
    <message>
        <source>(тепер %1)</source>
        <translation>(now %1)</translation>
    </message>
    <message>
        <source>(тепер без ціни)</source>
        <translation>(no price now)</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
    <message>
        <source>пропущено: тим часом змінив хтось інший</source>
        <translation>left out: changed by somebody else meanwhile</translation>
    </message>
    <message>
        <source>повернуто, як було</source>
        <translation>put back as it was</translation>
    </message>
    <message>
        <source>записано</source>
        <translation>written</translation>
    </message>
    <message>
        <source>Останню зміну скасовано: повернуто %1.</source>
        <translation>The last change was undone: %1 put back.</translation>
    </message>
    <message>
        <source>Записано: %1.</source>
        <translation>Written: %1.</translation>
    </message>
    <message>
        <source>Пропущено, бо тим часом їх змінив хтось інший: %1.</source>
        <translation>Left out because somebody else has changed them meanwhile: %1.</translation>
    </message>
</context>
<context>
    <name>CardRange</name>
    <message>
        <source>Діапазон карток не вільний, в заданому діапазоні знадено карток:</source>
        <translation>The range of cards is not free, cards found in the given range:</translation>
    </message>
    <message>
        <source>Останній код був би %1, а найбільший можливий %2.</source>
        <translation>The last code would be %1, and the highest possible one is %2.</translation>
    </message>
    <message>
        <source>Немає даних після запиту</source>
        <translation>No data after the query</translation>
    </message>
    <message>
        <source>Створено карток: %1, коди %2.</source>
        <translation>Cards created: %1, codes %2.</translation>
    </message>
    <message>
        <source>Не створено жодної картки.</source>
        <translation>No card was created.</translation>
    </message>
    <message>
        <source>Створено карток: %1 з %2, коди %3. Решту не створено.</source>
        <translation>Cards created: %1 of %2, codes %3. The rest was not created.</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався: чи створено картки %1, покаже пошук у списку.</source>
        <translation>The connection broke: whether the cards %1 were created, a search in the list will show.</translation>
    </message>
</context>
<context>
    <name>CardReceipts</name>
    <message>
        <source>За &amp;останні:</source>
        <translation>For the &amp;last:</translation>
    </message>
    <message>
        <source>&amp;Магазин:</source>
        <translation>&amp;Shop:</translation>
    </message>
    <message>
        <source>Чеки картки</source>
        <translation>Receipts of the card</translation>
    </message>
    <message>
        <source>Час</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Каса</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>Чек</source>
        <translation>Receipt</translation>
    </message>
    <message>
        <source>Знижка, %</source>
        <translation>Discount, %</translation>
    </message>
    <message>
        <source>Знижка</source>
        <translation>Discount</translation>
    </message>
    <message>
        <source>Сплачено</source>
        <translation>Paid</translation>
    </message>
    <message>
        <source>Чеків зі знижкою за цією карткою немає.</source>
        <translation>There are no receipts with a discount by this card.</translation>
    </message>
    <message>
        <source>31 день</source>
        <translation>31 days</translation>
    </message>
    <message>
        <source>92 дні</source>
        <translation>92 days</translation>
    </message>
    <message>
        <source>366 днів</source>
        <translation>366 days</translation>
    </message>
    <message>
        <source>Всі магазини</source>
        <translation>All shops</translation>
    </message>
    <message>
        <source>Виберіть картку у списку.</source>
        <translation>Choose a card in the list.</translation>
    </message>
    <message>
        <source>Картка %1 %2</source>
        <translation>Card %1 %2</translation>
    </message>
    <message>
        <source>Сума покупок %1, сума бонусів %2</source>
        <translation>Purchases %1, bonus %2</translation>
    </message>
    <message>
        <source>Виберіть магазин: у базі немає індексів для швидких звітів, і без магазину довелося б прочитати всі чеки мережі.</source>
        <translation>Choose a shop: the database has no indexes for quick reports, and without a shop all receipts of the chain would have to be read.</translation>
    </message>
    <message>
        <source>Чеки зі знижкою за карткою від %1.</source>
        <translation>Receipts with a discount by the card since %1.</translation>
    </message>
    <message>
        <source>сплачено %1, знижка %2</source>
        <translation>paid %1, discount %2</translation>
    </message>
    <message>
        <source>Зупинити</source>
        <translation>Stop</translation>
    </message>
</context>
<context>
    <name>CardSums</name>
    <message>
        <source>Карточка клієнта не знайдена</source>
        <translation>The client&apos;s card was not found</translation>
    </message>
    <message>
        <source>Відсутні дані після запиту</source>
        <translation>No data after the query</translation>
    </message>
</context>
<context>
    <name>CashEndFields</name>
    <message>
        <source>Зміна ще не відкрита: її відкриє ця операція.</source>
        <translation>There is no open shift yet: this operation opens it.</translation>
    </message>
    <message>
        <source>За зміною № %1 у касі має бути %2.</source>
        <translation>By shift No. %1 the register should have %2.</translation>
    </message>
    <message>
        <source>Зміну відкрив інший користувач: записати може лише він.</source>
        <translation>The shift was opened by another user: only he can write.</translation>
    </message>
    <message>
        <source>Каси ще читаються. Повторіть.</source>
        <translation>The registers are still being read. Try again.</translation>
    </message>
    <message>
        <source>Виберіть касу.</source>
        <translation>Choose the register.</translation>
    </message>
    <message>
        <source>Виберіть службову операцію. Їх список – у довіднику «Службові операції».</source>
        <translation>Choose the service operation. They are listed in the table “Service operations”.</translation>
    </message>
</context>
<context>
    <name>CashInvoice</name>
    <message>
        <source>накладна № %1</source>
        <translation>invoice No. %1</translation>
    </message>
    <message>
        <source>Суму накладної тим часом змінено: тепер це %1. Відкрийте її ще раз.</source>
        <translation>The sum of the invoice was changed meanwhile: it is %1 now. Open it once more.</translation>
    </message>
    <message>
        <source>Виберіть магазин, до якого передається готівка.</source>
        <translation>Choose the shop to which the cash is sent.</translation>
    </message>
    <message>
        <source>Готівку не можна передати до того самого магазину. Виберіть інший.</source>
        <translation>Cash cannot be sent to the same shop. Choose another one.</translation>
    </message>
    <message>
        <source>Введіть суму, більшу за нуль.</source>
        <translation>Enter a sum greater than zero.</translation>
    </message>
</context>
<context>
    <name>CashMoves</name>
    <message>
        <source>внесення</source>
        <translation>cash in</translation>
    </message>
    <message>
        <source>вилучення</source>
        <translation>cash out</translation>
    </message>
    <message>
        <source>закриття зміни</source>
        <translation>closing of the shift</translation>
    </message>
    <message>
        <source>зміна № </source>
        <translation>shift No. </translation>
    </message>
    <message>
        <source>надіслано</source>
        <translation>sent</translation>
    </message>
    <message>
        <source>прийнято</source>
        <translation>accepted</translation>
    </message>
    <message>
        <source>невідомо</source>
        <translation>unknown</translation>
    </message>
    <message>
        <source>сейф</source>
        <translation>safe</translation>
    </message>
    <message>
        <source>Разом</source>
        <translation>Total</translation>
    </message>
    <message>
        <source>Внесено в касу</source>
        <translation>Brought into the register</translation>
    </message>
    <message>
        <source>Вилучено з каси</source>
        <translation>Taken out of the register</translation>
    </message>
    <message>
        <source>Надіслано</source>
        <translation>Sent</translation>
    </message>
    <message>
        <source>З них у дорозі</source>
        <translation>Of these on the way</translation>
    </message>
    <message>
        <source>З них не дійшло</source>
        <translation>Of these missing</translation>
    </message>
    <message>
        <source>Прийнято</source>
        <translation>Accepted</translation>
    </message>
    <message>
        <source>Час</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Рух</source>
        <translation>Move</translation>
    </message>
    <message>
        <source>Операція / магазин</source>
        <translation>Operation / shop</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Каса</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>Працівник</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>Примітка</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Чек / накладна №</source>
        <translation>Receipt / invoice No.</translation>
    </message>
    <message>
        <source>Група</source>
        <translation>Group</translation>
    </message>
    <message>
        <source>Операцій</source>
        <translation>Operations</translation>
    </message>
</context>
<context>
    <name>CashWriter</name>
    <message>
        <source>Введіть суму, більшу за нуль.</source>
        <translation>Enter a sum greater than zero.</translation>
    </message>
    <message>
        <source>Службову операцію «%1» тим часом змінено. Виберіть операцію ще раз.</source>
        <translation>The service operation “%1” was changed meanwhile. Choose the operation once more.</translation>
    </message>
    <message>
        <source>Стільки готівки зміна не вмістить: її стало б більше за %1. Закрийте зміну.</source>
        <translation>The shift does not hold so much cash: there would be more than %1. Close the shift.</translation>
    </message>
    <message>
        <source>З даним магазином працює інший користувач.
Зачекайте або зв&apos;яжіться з пітримкою.</source>
        <translation>Another user is working with this shop.
Wait or contact support.</translation>
    </message>
    <message>
        <source>Зміну № %1 щойно закрила інша програма. Готівку не записано. Запишіть її ще раз: вона відкриє нову зміну.</source>
        <translation>Another program has just closed shift No. %1. The cash was not written. Write it once more: it opens a new shift.</translation>
    </message>
    <message>
        <source>На касі зараз записує інша програма. Готівку не записано. Запишіть її ще раз.</source>
        <translation>Another program is writing at the register. The cash was not written. Write it once more.</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався під час запису чека № %1 і невідомо, чи його записано. Запишіть ще раз: програма спершу запитає сервер.</source>
        <translation>The connection broke while receipt No. %1 was written, and it is not known whether it is there. Write it once more: the program asks the server first.</translation>
    </message>
    <message>
        <source>Готівку не записано. Запишіть її ще раз.</source>
        <translation>The cash was not written. Write it once more.</translation>
    </message>
    <message>
        <source>За зміною в касі %1, а вилучається %2. Більше може бути лише тоді, коли в касі залишилась готівка попередньої зміни.</source>
        <translation>By its shift the register has %1, and %2 is to be taken out. There can only be more if cash of an earlier shift was left in it.</translation>
    </message>
</context>
<context>
    <name>ChangeWatch</name>
    <message>
        <source>Повідомлення</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Ці дані в базі вже змінено. У списку те, що було прочитано раніше.</source>
        <translation>The database has newer data by now. The list shows what was read before.</translation>
    </message>
    <message>
        <source>Оновит&amp;и</source>
        <translation>Re&amp;load</translation>
    </message>
</context>
<context>
    <name>ChangesDialog</name>
    <message>
        <source>(немає)</source>
        <translation>(none)</translation>
    </message>
    <message>
        <source>(порожньо)</source>
        <translation>(empty)</translation>
    </message>
    <message>
        <source>Запис змінено іншою програмою</source>
        <translation>Record changed by another program</translation>
    </message>
    <message>
        <source>Поки редактор був відкритий, цей запис змінила інша програма. Виділене жирним змінили і ви, і вона: виберіть, чиї значення залишити. Решта її змін збережеться разом із вашими. Поки що нічого не збережено.</source>
        <translation>While the editor was open, another program has changed this record. What is bold was changed both by you and by it: choose whose values are to stay. Its other changes will be saved together with yours. Nothing has been saved yet.</translation>
    </message>
    <message>
        <source>Поки редактор був відкритий, цей запис змінила інша програма, але не те, що змінили ви. Її зміни можна зберегти разом із вашими. Поки що нічого не збережено.</source>
        <translation>While the editor was open, another program has changed this record, but not what you have changed. Its changes can be saved together with yours. Nothing has been saved yet.</translation>
    </message>
    <message>
        <source>Поле</source>
        <translation>Field</translation>
    </message>
    <message>
        <source>Було</source>
        <translation>Before</translation>
    </message>
    <message>
        <source>У вас</source>
        <translation>Yours</translation>
    </message>
    <message>
        <source>В іншої програми</source>
        <translation>The other program&apos;s</translation>
    </message>
    <message>
        <source>&amp;Взяти її значення</source>
        <translation>&amp;Take its values</translation>
    </message>
    <message>
        <source>&amp;Залишити мої</source>
        <translation>&amp;Keep mine</translation>
    </message>
    <message>
        <source>&amp;Зберегти разом</source>
        <translation>&amp;Save both</translation>
    </message>
    <message>
        <source>&amp;Повернутися до редактора</source>
        <translation>&amp;Back to the editor</translation>
    </message>
    <message>
        <source>У неї</source>
        <translation>Theirs</translation>
    </message>
</context>
<context>
    <name>ChekList</name>
    <message>
        <source>Z-звіт</source>
        <translation>Z-report</translation>
    </message>
    <message>
        <source>номер</source>
        <translation>number</translation>
    </message>
    <message>
        <source>тип</source>
        <translation>type</translation>
    </message>
    <message>
        <source>сума / кількість</source>
        <translation>amount / quantity</translation>
    </message>
    <message>
        <source>дата час</source>
        <translation>date time</translation>
    </message>
    <message>
        <source>каса</source>
        <translation>cash register</translation>
    </message>
</context>
<context>
    <name>ChekType</name>
    <message>
        <source>продаж</source>
        <translation>sale</translation>
    </message>
    <message>
        <source>внесення</source>
        <translation>cash in</translation>
    </message>
    <message>
        <source>вилучення</source>
        <translation>cash out</translation>
    </message>
    <message>
        <source>повернення</source>
        <translation>return</translation>
    </message>
    <message>
        <source>прийом</source>
        <translation>goods in</translation>
    </message>
    <message>
        <source>переміщення</source>
        <translation>transfer</translation>
    </message>
    <message>
        <source>Z-звіт</source>
        <translation>Z-report</translation>
    </message>
    <message>
        <source>невідомо</source>
        <translation>unknown</translation>
    </message>
</context>
<context>
    <name>ChekWriter</name>
    <message>
        <source>З даним магазином працює інший користувач.
Зачекайте або зв&apos;яжіться з пітримкою.</source>
        <translation>Another user is working with this shop.
Wait or contact support.</translation>
    </message>
    <message>
        <source>Чек з таким номером щойно записала інша програма на цій касі. Чек не записано. Повторіть оплату.</source>
        <translation>Another program at this cash register has just recorded a receipt with this number. The receipt is not recorded. Repeat the payment.</translation>
    </message>
    <message>
        <source>Залишки зараз записує інша програма. Чек не записано. Повторіть оплату.</source>
        <translation>Another program is writing the stock now. The receipt is not recorded. Repeat the payment.</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався під час запису чека № %1 і невідомо, чи його записано. Перед новою оплатою програма запитає сервер ще раз.</source>
        <translation>The connection broke while receipt No. %1 was being recorded, and it is not known whether it was recorded. Before a new payment the program will ask the server again.</translation>
    </message>
    <message>
        <source>Чек не записано. Повторіть оплату.</source>
        <translation>The receipt is not recorded. Repeat the payment.</translation>
    </message>
    <message>
        <source>У чеку немає товарів.</source>
        <translation>The receipt has no goods.</translation>
    </message>
    <message>
        <source>Товари (%1) без знижки (%2) не дорівнюють сумі до оплати (%3). Чек не записано: оплатіть його ще раз.</source>
        <translation>The goods (%1) less the discount (%2) are not the sum to pay (%3). The receipt was not written: pay it again.</translation>
    </message>
    <message>
        <source>Знижки рядків (%1) не дорівнюють знижці чека (%2). Чек не записано: введіть знижку ще раз.</source>
        <translation>The discounts of the rows (%1) are not that of the receipt (%2). The receipt was not written: enter the discount again.</translation>
    </message>
    <message>
        <source>Оплачено не стільки, скільки треба (%1). Чек не записано: оплатіть його ще раз.</source>
        <translation>What was paid is not what is owed (%1). The receipt was not written: pay it again.</translation>
    </message>
    <message>
        <source>Зміна № %1 не вмістить цього чека: її сума стала б більшою за %2. Закрийте зміну (F12) і оплатіть чек у новій.</source>
        <translation>Shift No. %1 cannot hold this receipt: its sum would be above %2. Close the shift (F12) and pay the receipt in a new one.</translation>
    </message>
    <message>
        <source>Зміну № %1 щойно закрила інша програма. Чек не записано. Повторіть оплату: він відкриє нову зміну.</source>
        <translation>Another program has just closed shift No. %1. The receipt was not written. Pay it again: it will open a new shift.</translation>
    </message>
</context>
<context>
    <name>ClientImport</name>
    <message>
        <source>код порожній</source>
        <translation>the code is empty</translation>
    </message>
    <message>
        <source>у коді не лише цифри</source>
        <translation>the code has more than digits</translation>
    </message>
    <message>
        <source>код не від 1 до 4294967295</source>
        <translation>the code is not from 1 to 4294967295</translation>
    </message>
    <message>
        <source>знижку не вказано</source>
        <translation>no discount level is given</translation>
    </message>
    <message>
        <source>знижка – не номер рівня</source>
        <translation>the discount is not the number of a level</translation>
    </message>
    <message>
        <source>запис обірвано</source>
        <translation>the record is cut off</translation>
    </message>
    <message>
        <source>рівня знижки %1 немає у базі</source>
        <translation>discount level %1 is not in the database</translation>
    </message>
    <message>
        <source>Сервер не взяв усіх карток: рівень знижки або групу щойно вилучено.</source>
        <translation>The server has not taken all cards: a discount level or the group has just been deleted.</translation>
    </message>
    <message>
        <source>не записано</source>
        <translation>not written</translation>
    </message>
    <message>
        <source>не записано: %1</source>
        <translation>not written: %1</translation>
    </message>
    <message>
        <source>В таблиці вже є не нульові суми!</source>
        <translation>There are sums in the table already!</translation>
    </message>
    <message>
        <source>Таблиця транзакцій містить не всі знижки які присутні в таблиці клієнтів!</source>
        <translation>Some discount levels of the clients are not in the table of levels!</translation>
    </message>
    <message>
        <source>Зупинено; у базі нічого не змінено.</source>
        <translation>Stopped; nothing has changed in the database.</translation>
    </message>
    <message>
        <source>Перевірку файла зупинено; у базу нічого не записано.</source>
        <translation>The check of the file was stopped; nothing was written to the database.</translation>
    </message>
    <message>
        <source>Пробний запуск, у базу нічого не записано. Буде додано карток: %1, підвищено знижку: %2, залишиться як є: %3, відмовлено: %4.</source>
        <translation>A trial, nothing was written to the database. Cards to be added: %1, to be raised: %2, to stay as they are: %3, refused: %4.</translation>
    </message>
    <message>
        <source>Додано карток: %1, підвищено знижку: %2, залишено як є: %3, відмовлено: %4.</source>
        <translation>Cards added: %1, raised: %2, left as they are: %3, refused: %4.</translation>
    </message>
    <message>
        <source>Не закінчено, не перевірено записів: %1.</source>
        <translation>Not finished, records not checked: %1.</translation>
    </message>
    <message>
        <source>Імпорт не закінчено, не оброблено записів: %1. Записане досі залишилося; повторний імпорт його не змінить.</source>
        <translation>The import is not finished, records left out: %1. What was written stays; importing again will not change it.</translation>
    </message>
    <message>
        <source>Невідомо, чи записано останніх карток: %1 – сервер не відповів.</source>
        <translation>It is not known whether the last cards (%1) were written: the server did not answer.</translation>
    </message>
    <message>
        <source>Записів з позначкою вилучення: %1 – вони імпортуються, як і решта.</source>
        <translation>Records marked as deleted: %1; they are imported like the others.</translation>
    </message>
    <message>
        <source>Суми встановлено карткам: %1; знижку зафіксовано карткам: %2.</source>
        <translation>Cards with a sum set: %1; cards with a fixed discount: %2.</translation>
    </message>
</context>
<context>
    <name>ClnFilter</name>
    <message>
        <source>Бонуси</source>
        <translation>Bonuses</translation>
    </message>
    <message>
        <source>Знижка</source>
        <translation>Discount</translation>
    </message>
    <message>
        <source>Бонус</source>
        <translation>Bonus</translation>
    </message>
    <message>
        <source>Показувати тільки заблоковані картки</source>
        <translation>Only show blocked cards</translation>
    </message>
    <message>
        <source>Показувати тільки не заблоковані картки</source>
        <translation>Only show cards that are not blocked</translation>
    </message>
    <message>
        <source>Застосувати</source>
        <translation>Apply</translation>
    </message>
    <message>
        <source>Відмінити</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>Combos</name>
    <message>
        <source>Спершу додайте групу магазинів і дозвольте її у правах користувача.</source>
        <translation>First add a shop group and permit it in the user&apos;s rights.</translation>
    </message>
</context>
<context>
    <name>CountDesk</name>
    <message>
        <source>Код «%1» не враховано: пораховане вже записується.</source>
        <translation>Code “%1” was not taken: what was counted is being written.</translation>
    </message>
    <message>
        <source>&amp;Рахувати далі</source>
        <translation>&amp;Go on counting</translation>
    </message>
    <message>
        <source>Товар «%1» ще не пораховано. Натисніть Enter або очистіть поле.</source>
        <translation>Item “%1” is not counted yet. Press Enter or clear the field.</translation>
    </message>
    <message>
        <source>Не пораховано позицій: %1. Введіть кількість; 0 — коли товару немає.</source>
        <translation>Lines not counted: %1. Enter the quantity; 0 if there is none.</translation>
    </message>
</context>
<context>
    <name>CountModel</name>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Штрихкод</source>
        <translation>Barcode</translation>
    </message>
    <message>
        <source>Назва</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Надіслано</source>
        <translation>Sent</translation>
    </message>
    <message>
        <source>Пораховано</source>
        <translation>Counted</translation>
    </message>
    <message>
        <source>Різниця</source>
        <translation>Difference</translation>
    </message>
    <message>
        <source>Пораховане вже записується: змінити його не можна.</source>
        <translation>What was counted is being saved already: it cannot be changed.</translation>
    </message>
    <message>
        <source>«%1»: кількість — від 0 до %2.</source>
        <translation>“%1”: a quantity is from 0 to %2.</translation>
    </message>
    <message>
        <source>«%1»: кількість штучного товару — ціле число.</source>
        <translation>“%1”: the quantity of piece goods is a whole number.</translation>
    </message>
    <message>
        <source>Пораховано позицій: %1 з %2. Нестача: %3 (%4). Надлишок: %5 (%6).</source>
        <translation>Lines counted: %1 of %2. Missing: %3 (%4). Surplus: %5 (%6).</translation>
    </message>
    <message>
        <source>«%1»: надіслано %2, є %3</source>
        <translation>“%1”: sent %2, there are %3</translation>
    </message>
    <message>
        <source>… і ще %1</source>
        <translation>… and %1 more</translation>
    </message>
    <message>
        <source>не надсилали</source>
        <translation>not sent</translation>
    </message>
</context>
<context>
    <name>CsvText</name>
    <message>
        <source>Такого файла немає.</source>
        <translation>There is no such file.</translation>
    </message>
    <message>
        <source>Це не звичайний файл.</source>
        <translation>This is not an ordinary file.</translation>
    </message>
    <message>
        <source>Файл порожній.</source>
        <translation>The file is empty.</translation>
    </message>
    <message>
        <source>Файл завеликий: %1 МБ, а може мати щонайбільше %2 МБ.</source>
        <translation>The file is too large: %1 MB, it may have %2 MB at most.</translation>
    </message>
    <message>
        <source>Це не текстовий файл. Таблицю збережіть у програмі таблиць як CSV.</source>
        <translation>This is no text file. Save a table as CSV in the spreadsheet program.</translation>
    </message>
</context>
<context>
    <name>DayTimeline</name>
    <message>
        <source>%1 %2 – %3</source>
        <translation>%1 %2 – %3</translation>
    </message>
    <message>
        <source>немає даних</source>
        <translation>no data</translation>
    </message>
</context>
<context>
    <name>Db</name>
    <message>
        <source>Значення запиту не відповідають його місцям.</source>
        <translation>The values of the query do not match its places.</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Не має даних після запиту</source>
        <translation>No data after the query</translation>
    </message>
</context>
<context>
    <name>DbfTable</name>
    <message>
        <source>Файл DBF пошкоджено: %1</source>
        <translation>The DBF file is damaged: %1</translation>
    </message>
    <message>
        <source>Це не звичайний файл.</source>
        <translation>This is not an ordinary file.</translation>
    </message>
    <message>
        <source>він закінчується посеред заголовка.</source>
        <translation>it ends in the middle of its header.</translation>
    </message>
    <message>
        <source>довжина заголовка (%1) замала.</source>
        <translation>the length of its header (%1) is too small.</translation>
    </message>
    <message>
        <source>заголовок (%1 байтів) довший за сам файл.</source>
        <translation>its header (%1 bytes) is longer than the file itself.</translation>
    </message>
    <message>
        <source>поля (%1 байтів) не вміщуються у запис (%2 байтів).</source>
        <translation>the fields (%1 bytes) do not fit into a record (%2 bytes).</translation>
    </message>
    <message>
        <source>Файл завеликий: записів на %1 байтів, а прочитати можна щонайбільше %2.</source>
        <translation>The file is too large: its records take %1 bytes, %2 at most can be read.</translation>
    </message>
    <message>
        <source>Читання файла скасовано.</source>
        <translation>Reading the file was cancelled.</translation>
    </message>
    <message>
        <source>На записи файла (%1 байтів) не вистачає пам&apos;яті.</source>
        <translation>There is not enough memory for the records of the file (%1 bytes).</translation>
    </message>
</context>
<context>
    <name>Devices</name>
    <message>
        <source>не вказано</source>
        <translation>not specified</translation>
    </message>
    <message>
        <source>Поки ви редагували, інша програма записала тут «%1». Натисніть Enter ще раз, щоб записати своє, або Esc, щоб залишити це.</source>
        <translation>While you were editing, another program stored “%1” here. Press Enter again to store yours, or Esc to keep this.</translation>
    </message>
    <message>
        <source>Типу «%1» немає. Виберіть один із цих: %2; без типу залиште поле порожнім.</source>
        <translation>There is no type “%1”. Choose one of these: %2; for no type leave the field empty.</translation>
    </message>
    <message>
        <source>Помилка оновлення запису.</source>
        <translation>Error when updating the record.</translation>
    </message>
</context>
<context>
    <name>DocumentWriter</name>
    <message>
        <source>Нема даних після запиту:</source>
        <translation>No data after the query:</translation>
    </message>
    <message>
        <source>Касу перенесено до іншого магазину («%1»). Виберіть магазин і касу ще раз.</source>
        <translation>The register was moved to another shop (“%1”). Choose shop and register again.</translation>
    </message>
    <message>
        <source>Касу заблоковано: продавати на ній не можна.</source>
        <translation>The register is blocked: nothing can be sold at it.</translation>
    </message>
    <message>
        <source>Магазин заблоковано: продавати в ньому не можна.</source>
        <translation>The shop is blocked: nothing can be sold in it.</translation>
    </message>
    <message>
        <source>Номери на цій касі вичерпано: більших за %1 немає. Зверніться до підтримки.</source>
        <translation>The register has run out of numbers: there are none above %1. Ask the support.</translation>
    </message>
    <message>
        <source>Зміну цієї каси відкрито в іншому магазині. Закрийте її перед продажем.</source>
        <translation>The register&apos;s shift was opened in another shop. Close it before selling.</translation>
    </message>
</context>
<context>
    <name>EditDialog</name>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Додавання нового запису</source>
        <translation>Adding a new record</translation>
    </message>
    <message>
        <source>Редагування запису №</source>
        <translation>Editing record No. </translation>
    </message>
    <message>
        <source>Зміни не збережено.</source>
        <translation>The changes are not saved.</translation>
    </message>
    <message>
        <source>Продовжити редагування</source>
        <translation>Go on editing</translation>
    </message>
    <message>
        <source>Закрити без збереження</source>
        <translation>Close without saving</translation>
    </message>
    <message>
        <source>Записується… Скасувати вже не можна.</source>
        <translation>Writing… This can no longer be cancelled.</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
</context>
<context>
    <name>ErrorList</name>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
</context>
<context>
    <name>ExchangeRun</name>
    <message>
        <source>Теку не створено: %1</source>
        <translation>The folder was not made: %1</translation>
    </message>
    <message>
        <source>Дозвін цієї бази вже веде інша копія програми.</source>
        <translation>Another copy of the program is exchanging for this database already.</translation>
    </message>
    <message>
        <source>Загальний час дозвону:</source>
        <translation>Total time of the exchange:</translation>
    </message>
    <message>
        <source>Підключення до бази даних на</source>
        <translation>Connecting to the database at</translation>
    </message>
    <message>
        <source>Зєднання з БД всановлено.</source>
        <translation>Connected to the database.</translation>
    </message>
    <message>
        <source>Запис клієнтів.</source>
        <translation>Writing clients.</translation>
    </message>
    <message>
        <source>Запис клієнтів завершено. За:</source>
        <translation>Clients written. In:</translation>
    </message>
    <message>
        <source>Запис артикуів.</source>
        <translation>Writing articles.</translation>
    </message>
    <message>
        <source>Запис артикуів завершено. За:</source>
        <translation>Articles written. In:</translation>
    </message>
    <message>
        <source>Запис знижок.</source>
        <translation>Writing discounts.</translation>
    </message>
    <message>
        <source>Запис знижок завершено. За:</source>
        <translation>Discounts written. In:</translation>
    </message>
    <message>
        <source>Зєднання з CashDrive.</source>
        <translation>Connecting to CashDrive.</translation>
    </message>
    <message>
        <source>Зєднання з CashDrive завершено. За:</source>
        <translation>Connection to CashDrive ended. In:</translation>
    </message>
    <message>
        <source>Розбір транзакцій.</source>
        <translation>Counting transactions.</translation>
    </message>
    <message>
        <source>Розбір транзакцій завершено. За:</source>
        <translation>Transactions counted. In:</translation>
    </message>
    <message>
        <source>Каса %1: %2</source>
        <translation>Register %1: %2</translation>
    </message>
    <message>
        <source>карток записано: %1</source>
        <translation>cards written: %1</translation>
    </message>
    <message>
        <source>товарів записано: %1</source>
        <translation>items written: %1</translation>
    </message>
    <message>
        <source>знижок записано: %1</source>
        <translation>discounts written: %1</translation>
    </message>
    <message>
        <source>транзакцій отримано: %1</source>
        <translation>transactions received: %1</translation>
    </message>
    <message>
        <source>транзакцій розібрано: %1</source>
        <translation>transactions done: %1</translation>
    </message>
    <message>
        <source>з них враховано товарів: %1</source>
        <translation>items counted: %1</translation>
    </message>
    <message>
        <source>враховано на картках: %1</source>
        <translation>counted on cards: %1</translation>
    </message>
    <message>
        <source>підвищено знижок: %1</source>
        <translation>discounts raised: %1</translation>
    </message>
    <message>
        <source>невідомих карток: %1</source>
        <translation>unknown cards: %1</translation>
    </message>
    <message>
        <source>не враховано: %1</source>
        <translation>left out: %1</translation>
    </message>
    <message>
        <source>Зв&apos;язок з базою втрачено.</source>
        <translation>The connection to the database was lost.</translation>
    </message>
    <message>
        <source>Картки тримає інша програма.</source>
        <translation>Another program holds the cards.</translation>
    </message>
    <message>
        <source>Ці транзакції вже розбирає інша програма.</source>
        <translation>Another program is counting these transactions already.</translation>
    </message>
    <message>
        <source>База не приймає записів.</source>
        <translation>The database takes no writing.</translation>
    </message>
    <message>
        <source>Дозвін завершено.</source>
        <translation>The exchange has ended.</translation>
    </message>
    <message>
        <source>Дозвін зупинено.</source>
        <translation>The exchange was stopped.</translation>
    </message>
    <message>
        <source>Дозвін не завершено.</source>
        <translation>The exchange did not end.</translation>
    </message>
    <message>
        <source>Решту розбере наступний дозвін; ніщо не врахується двічі.</source>
        <translation>The next exchange does the rest; nothing is counted twice.</translation>
    </message>
    <message>
        <source>хв.</source>
        <translation>min</translation>
    </message>
    <message>
        <source>сек.</source>
        <translation>s</translation>
    </message>
    <message>
        <source>год.</source>
        <translation>h</translation>
    </message>
</context>
<context>
    <name>ExchangeWrites</name>
    <message>
        <source>Каса %1, картка %2: %3</source>
        <translation>Register %1, card %2: %3</translation>
    </message>
    <message>
        <source>У вибраному місці немає кас з кодом CashDrive.</source>
        <translation>There are no registers with a CashDrive code in this place.</translation>
    </message>
</context>
<context>
    <name>FileJob</name>
    <message>
        <source>Це не звичайний файл.</source>
        <translation>This is not a regular file.</translation>
    </message>
    <message>
        <source>Цей файл саме записується: дочекайтесь кінця або скасуйте те завдання.</source>
        <translation>This file is being written: wait for the end, or cancel that job.</translation>
    </message>
    <message>
        <source>Файл не збережено: %1
%2</source>
        <translation>File not saved: %1
%2</translation>
    </message>
    <message>
        <source>Файл збережено: %1</source>
        <translation>File saved: %1</translation>
    </message>
    <message>
        <source>Запис файла %1</source>
        <translation>Writing %1</translation>
    </message>
</context>
<context>
    <name>FirstStepsView</name>
    <message>
        <source>Кроки до першого продажу</source>
        <translation>Steps to the first sale</translation>
    </message>
    <message>
        <source>Кроки без кнопок роблять ті, хто має на них права.</source>
        <translation>Steps without a button are made by those who have the right to.</translation>
    </message>
</context>
<context>
    <name>Goods</name>
    <message>
        <source>Товар не збережено: штрихкод %1 вже має товар №%2 &quot;%3&quot;.</source>
        <translation>The goods item is not saved: goods item No. %2 &quot;%3&quot; already has barcode %1.</translation>
    </message>
    <message>
        <source>Товар не збережено: для групи магазинів &quot;%1&quot; ціну зберегти не можна. Оберіть групу &quot;default&quot; або магазин у ній.</source>
        <translation>The goods item is not saved: no price can be saved for the shop group &quot;%1&quot;. Choose the group &quot;default&quot; or a shop in it.</translation>
    </message>
    <message>
        <source>Магазин №%1</source>
        <translation>Shop No. %1</translation>
    </message>
    <message>
        <source>Штрихкод</source>
        <translation>Barcode</translation>
    </message>
    <message>
        <source>Товар не збережено: магазин &quot;%1&quot; перейменовано або вилучено, поки редактор був відкритий. Виберіть для цієї ціни магазин ще раз або вилучіть рядок.</source>
        <translation>The item was not saved: the shop &quot;%1&quot; was renamed or deleted while the editor was open. Choose the shop of this price again or delete the row.</translation>
    </message>
    <message>
        <source>Ціна магазинів: %1, %2, пріоритет %3</source>
        <translation>Shop price: %1, %2, priority %3</translation>
    </message>
    <message>
        <source>усі магазини</source>
        <translation>all shops</translation>
    </message>
    <message>
        <source>Код товару не перевірено: сервер відповів помилкою.</source>
        <translation>The code of the goods item is not checked: the server answered with an error.</translation>
    </message>
    <message>
        <source>Товар №%1 вже є: &quot;%2&quot;.</source>
        <translation>Goods item No. %1 already exists: &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>Правило товару не перевірено: сервер відповів помилкою.</source>
        <translation>The rule of the goods item is not checked: the server answered with an error.</translation>
    </message>
    <message>
        <source>В групі</source>
        <translation>In group</translation>
    </message>
    <message>
        <source>з правилом</source>
        <translation>with rule</translation>
    </message>
    <message>
        <source> вже є товар №</source>
        <translation> there is already goods item No. </translation>
    </message>
    <message>
        <source>Згідно даного правила, в одній групі може бути тільки один товар з таким правилом</source>
        <translation>By this rule, one group can have only one goods item with it</translation>
    </message>
</context>
<context>
    <name>GoodsPicker</name>
    <message>
        <source>Пошук по:</source>
        <translation>Search by:</translation>
    </message>
    <message>
        <source>&amp;штрихкоду</source>
        <translation>&amp;barcode</translation>
    </message>
    <message>
        <source>&amp;назві</source>
        <translation>&amp;name</translation>
    </message>
    <message>
        <source>То&amp;вар:</source>
        <translation>&amp;Goods:</translation>
    </message>
    <message>
        <source>Лі&amp;міт</source>
        <translation>&amp;Limit</translation>
    </message>
    <message>
        <source>Товари магазину</source>
        <translation>Goods of the shop</translation>
    </message>
    <message>
        <source>Пошук…</source>
        <translation>Searching…</translation>
    </message>
    <message>
        <source>У магазині немає товарів для продажу.</source>
        <translation>The shop has no goods for sale.</translation>
    </message>
    <message>
        <source>За цими умовами нічого не знайдено.</source>
        <translation>Nothing matches these conditions.</translation>
    </message>
    <message>
        <source>Товар «%1» не додано: сервер не відповів.</source>
        <translation>Item “%1” was not added: the server did not answer.</translation>
    </message>
    <message>
        <source>Товар «%1» не знайдено.</source>
        <translation>Goods item “%1” is not found.</translation>
    </message>
    <message>
        <source>За «%1» знайдено кілька товарів: виберіть потрібний і натисніть Enter.</source>
        <translation>Several items fit “%1”: choose one and press Enter.</translation>
    </message>
    <message>
        <source>Товар «%1» не додано: сервер не відповів вчасно.</source>
        <translation>Item “%1” was not added: the server did not answer in time.</translation>
    </message>
    <message>
        <source>Магазин ще не вибрано.</source>
        <translation>No shop is chosen yet.</translation>
    </message>
    <message>
        <source>Немає товарів, які можна прийняти.</source>
        <translation>There are no goods that can be received.</translation>
    </message>
    <message>
        <source>У магазині немає товарів для переміщення.</source>
        <translation>The shop has no goods to move.</translation>
    </message>
    <message>
        <source>У магазині-відправнику немає товарів.</source>
        <translation>The sending shop has no goods.</translation>
    </message>
    <message>
        <source>Додати знайдений товар</source>
        <translation>Add the item that was found</translation>
    </message>
    <message>
        <source>Із поля пошуку: до списку товарів</source>
        <translation>From the search field: to the list of goods</translation>
    </message>
</context>
<context>
    <name>GoodsPriceTable</name>
    <message>
        <source>Ціна</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>Пріоритет</source>
        <translation>Priority</translation>
    </message>
    <message>
        <source>Група магазинів</source>
        <translation>Shop group</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Ціни магазинів, рядки %1 і %2: однакові пріоритет, група і магазин.</source>
        <translation>Shop prices, rows %1 and %2: the same priority, group and shop.</translation>
    </message>
    <message>
        <source>Ціни магазинів, рядок %1: </source>
        <translation>Prices of shops, row %1: </translation>
    </message>
</context>
<context>
    <name>GoodsSearch</name>
    <message>
        <source>код</source>
        <translation>code</translation>
    </message>
    <message>
        <source>штрихкод</source>
        <translation>barcode</translation>
    </message>
    <message>
        <source>назва</source>
        <translation>name</translation>
    </message>
    <message>
        <source>зал</source>
        <translation>floor</translation>
    </message>
    <message>
        <source>склад</source>
        <translation>stock</translation>
    </message>
    <message>
        <source>ціна</source>
        <translation>price</translation>
    </message>
    <message>
        <source>акція</source>
        <translation>promotion</translation>
    </message>
</context>
<context>
    <name>GoodsShopList</name>
    <message>
        <source>%1: товар уже продається тут.</source>
        <translation>%1: the item is sold here already.</translation>
    </message>
</context>
<context>
    <name>Goto</name>
    <message>
        <source>код %1</source>
        <translation>code %1</translation>
    </message>
    <message>
        <source>заблоковано</source>
        <translation>blocked</translation>
    </message>
    <message>
        <source>Чек № %1, %2</source>
        <translation>Receipt No %1, %2</translation>
    </message>
    <message>
        <source>Зміна № %1</source>
        <translation>Shift No %1</translation>
    </message>
    <message>
        <source>відкрита</source>
        <translation>open</translation>
    </message>
    <message>
        <source>Магазини</source>
        <translation>Shops</translation>
    </message>
    <message>
        <source>магазин,магазини</source>
        <translation>shop,shops</translation>
    </message>
    <message>
        <source>Каси</source>
        <translation>Registers</translation>
    </message>
    <message>
        <source>каса,каси,обладнання</source>
        <translation>register,registers</translation>
    </message>
    <message>
        <source>Товари</source>
        <translation>Goods</translation>
    </message>
    <message>
        <source>товар,товари</source>
        <translation>item,goods</translation>
    </message>
    <message>
        <source>Картки</source>
        <translation>Cards</translation>
    </message>
    <message>
        <source>картка,карточка,клієнт</source>
        <translation>card,client</translation>
    </message>
    <message>
        <source>Чеки</source>
        <translation>Receipts</translation>
    </message>
    <message>
        <source>чек,чеки</source>
        <translation>receipt,receipts</translation>
    </message>
    <message>
        <source>Зміни</source>
        <translation>Shifts</translation>
    </message>
    <message>
        <source>зміна,зміни,звіт</source>
        <translation>shift,shifts</translation>
    </message>
    <message>
        <source>Меню</source>
        <translation>Menus</translation>
    </message>
</context>
<context>
    <name>GotoBox</name>
    <message>
        <source>Перейти до…</source>
        <translation>Go to…</translation>
    </message>
    <message>
        <source>&amp;Знайти:</source>
        <translation>&amp;Find:</translation>
    </message>
    <message>
        <source>команда, магазин, каса, товар, штрихкод, картка, чек, зміна</source>
        <translation>command, shop, register, item, barcode, card, receipt, shift</translation>
    </message>
    <message>
        <source>Знайдене</source>
        <translation>What was found</translation>
    </message>
    <message>
        <source>Сервер довго не відповідає. Команди меню працюють і без нього.</source>
        <translation>The server has not answered for a long time. The commands of the menus work without it.</translation>
    </message>
    <message>
        <source>Шукається…</source>
        <translation>Searching…</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Enter відкриває, стрілки обирають, Esc закриває. «чек 1205 хрещатик» шукає чеки 1205 лише там.</source>
        <translation>Enter opens, arrow keys choose, Esc closes. &quot;receipt 1205 baker&quot; finds the receipts 1205 of that place only.</translation>
    </message>
    <message>
        <source>Нічого не знайдено.</source>
        <translation>Nothing was found.</translation>
    </message>
    <message>
        <source>Знайдено: %1</source>
        <translation>Found: %1</translation>
    </message>
    <message>
        <source>%1 (перші %2, уточніть пошук)</source>
        <translation>%1 (the first %2, type more to narrow them)</translation>
    </message>
    <message>
        <source>База даних не відповіла, знайдено лише команди меню. Enter шукає ще раз.</source>
        <translation>The database did not answer, only commands of the menus were found. Enter searches again.</translation>
    </message>
</context>
<context>
    <name>GroupAccess</name>
    <message>
        <source>Група магазинів: %1</source>
        <translation>Shop group: %1</translation>
    </message>
    <message>
        <source>так</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>Передача в магазин: %1</source>
        <translation>Sending to the shop: %1</translation>
    </message>
    <message>
        <source>Назва</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>GroupsCompare</name>
    <message>
        <source>П&amp;ерша група:</source>
        <translation>&amp;First group:</translation>
    </message>
    <message>
        <source>&amp;Друга група:</source>
        <translation>Seco&amp;nd group:</translation>
    </message>
    <message>
        <source>Порівняння груп прав</source>
        <translation>Comparison of permission groups</translation>
    </message>
    <message>
        <source>Групи не відрізняються.</source>
        <translation>The groups do not differ.</translation>
    </message>
    <message>
        <source>&amp;Закрити</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>%1 і %2</source>
        <translation>%1 and %2</translation>
    </message>
</context>
<context>
    <name>ImportedList</name>
    <message>
        <source>Не скопійовано: %1</source>
        <translation>Not copied: %1</translation>
    </message>
    <message>
        <source>Не скопійовано: імпорт до цієї таблиці не дійшов.</source>
        <translation>Not copied: the import did not get to this table.</translation>
    </message>
    <message>
        <source>Таблиця</source>
        <translation>Table</translation>
    </message>
    <message>
        <source>Знайдено</source>
        <translation>Found</translation>
    </message>
    <message>
        <source>Додано</source>
        <translation>Added</translation>
    </message>
    <message>
        <source>Вже були</source>
        <translation>Were there</translation>
    </message>
    <message>
        <source>Не прийнято</source>
        <translation>Not accepted</translation>
    </message>
    <message>
        <source>Пояснення</source>
        <translation>Explanation</translation>
    </message>
    <message>
        <source>&amp;Копіювати все</source>
        <translation>&amp;Copy all</translation>
    </message>
    <message>
        <source>&amp;Закрити</source>
        <translation>&amp;Close</translation>
    </message>
</context>
<context>
    <name>Integrity</name>
    <message>
        <source>Таблиці бази</source>
        <translation>Tables of the database</translation>
    </message>
    <message>
        <source>Створіть її: «Сервіс», «Створити таблиці». Якщо вона була раніше, спершу відновіть її з копії.</source>
        <translation>Create it: “Service”, “Create tables”. If it was there before, restore it from a backup first.</translation>
    </message>
    <message>
        <source>Колонки таблиць</source>
        <translation>Columns of the tables</translation>
    </message>
    <message>
        <source>Передайте адміністратору бази: інші програми мережі читають ті самі колонки.</source>
        <translation>Tell the database administrator: other programs of the chain read the same columns.</translation>
    </message>
    <message>
        <source>Ключі таблиць</source>
        <translation>Keys of the tables</translation>
    </message>
    <message>
        <source>Передайте адміністратору бази: без ключа з&apos;являються двійники, із зайвим – відмови.</source>
        <translation>Tell the database administrator: without a key doubles appear, with one too many records are refused.</translation>
    </message>
    <message>
        <source>Зовнішні ключі</source>
        <translation>Foreign keys</translation>
    </message>
    <message>
        <source>Передайте адміністратору бази: без ключа залишаються записи, що ні на що не вказують.</source>
        <translation>Tell the database administrator: without the key records stay that point to nothing.</translation>
    </message>
    <message>
        <source>Рушії таблиць</source>
        <translation>Engines of the tables</translation>
    </message>
    <message>
        <source>Зробіть копію бази і переведіть таблицю: ALTER TABLE {table} ENGINE=InnoDB.</source>
        <translation>Back up the database and convert the table: ALTER TABLE {table} ENGINE=InnoDB.</translation>
    </message>
    <message>
        <source>Кодування і порівняння</source>
        <translation>Character sets and collations</translation>
    </message>
    <message>
        <source>Зробіть копію бази і переведіть таблицю: ALTER TABLE {table} CONVERT TO CHARACTER SET utf8mb4.</source>
        <translation>Back up the database and convert the table: ALTER TABLE {table} CONVERT TO CHARACTER SET utf8mb4.</translation>
    </message>
    <message>
        <source>Суми змін за чеками</source>
        <translation>Sums of shifts by receipts</translation>
    </message>
    <message>
        <source>Зміна № {zvit}: {sums}.</source>
        <translation>Shift no. {zvit}: {sums}.</translation>
    </message>
    <message>
        <source>Звірте з Z-звітом каси: або у базі бракує чеків, або зміну змінено поза програмою.</source>
        <translation>Compare with the Z-report of the register: either receipts are missing or the shift was changed outside of the program.</translation>
    </message>
    <message>
        <source>Зміни без чеків</source>
        <translation>Shifts without receipts</translation>
    </message>
    <message>
        <source>У зміни № {zvit} є суми, а чеків немає: {sums}.</source>
        <translation>Shift no. {zvit} has sums and no receipts: {sums}.</translation>
    </message>
    <message>
        <source>Чеки зміни не передано або видалено: відновіть їх з каси чи з копії бази.</source>
        <translation>The receipts of the shift were not transmitted or were deleted: restore them from the register or from a backup.</translation>
    </message>
    <message>
        <source>Чеки без зміни</source>
        <translation>Receipts without a shift</translation>
    </message>
    <message>
        <source>Чеки зміни № {zvit} (від № {chek}, рядків: {rows_}) є, а самої зміни немає.</source>
        <translation>There are receipts of shift no. {zvit} (from no. {chek}, lines: {rows_}), but no such shift.</translation>
    </message>
    <message>
        <source>Відновіть зміну з копії бази: без неї цих чеків немає у Z-звітах.</source>
        <translation>Restore the shift from a backup: without it these receipts are in no Z-report.</translation>
    </message>
    <message>
        <source>Магазин зміни</source>
        <translation>Shop of the shift</translation>
    </message>
    <message>
        <source>Зміна № {zvit} записана в одному магазині, а її чеки – в іншому (№ {otherShop}).</source>
        <translation>Shift no. {zvit} belongs to one shop, its receipts to another one (no. {otherShop}).</translation>
    </message>
    <message>
        <source>Перевірте, де стояла каса: звіти магазинів рахують цю зміну і її чеки окремо.</source>
        <translation>Find out where the register stood: the reports of the shops count this shift and its receipts apart.</translation>
    </message>
    <message>
        <source>Зміни без стану</source>
        <translation>Shifts without a state</translation>
    </message>
    <message>
        <source>У зміни № {zvit} немає часу: вона ані відкрита, ані закрита.</source>
        <translation>Shift no. {zvit} has no time: it is neither open nor closed.</translation>
    </message>
    <message>
        <source>Передайте адміністратору бази: нової зміни з таким номером каса не відкриє.</source>
        <translation>Tell the database administrator: the register cannot open a new shift of that number.</translation>
    </message>
    <message>
        <source>Зміни, відкриті довше доби</source>
        <translation>Shifts open longer than a day</translation>
    </message>
    <message>
        <source>Зміна № {zvit} відкрита з {began:time}.</source>
        <translation>Shift no. {zvit} is open since {began:time}.</translation>
    </message>
    <message>
        <source>Закрийте зміну Z-звітом.</source>
        <translation>Close the shift by its Z-report.</translation>
    </message>
    <message>
        <source>Z-чеки змін</source>
        <translation>Z-receipts of shifts</translation>
    </message>
    <message>
        <source>Зміна № {zvit}: {zReceipt}.</source>
        <translation>Shift no. {zvit}: {zReceipt}.</translation>
    </message>
    <message>
        <source>Звірте із Z-звітом каси: закриття зміни записано не повністю або змінено.</source>
        <translation>Compare with the Z-report of the register: the closing was not wholly written, or was changed.</translation>
    </message>
    <message>
        <source>Номери змін двічі</source>
        <translation>Shift numbers twice</translation>
    </message>
    <message>
        <source>Номер зміни {zvit} є на касі двічі: змін {shifts}, Z-чеків {zRows}.</source>
        <translation>Shift number {zvit} is there twice on the register: {shifts} shifts, {zRows} Z-receipts.</translation>
    </message>
    <message>
        <source>Передайте адміністратору бази: дві програми закрили на касі зміну з одним номером.</source>
        <translation>Tell the database administrator: two programs have closed a shift of one number on the register.</translation>
    </message>
    <message>
        <source>Оплата чеків</source>
        <translation>Payments of receipts</translation>
    </message>
    <message>
        <source>Чек № {chek}: товари {goods:money}, знижка {off:money}, до оплати {due:money}, оплачено {paid:money}.</source>
        <translation>Receipt no. {chek}: goods {goods:money}, discount {off:money}, to pay {due:money}, paid {paid:money}.</translation>
    </message>
    <message>
        <source>Звірте з чеком каси: товари без знижки, сума до оплати і оплачене мають бути рівні.</source>
        <translation>Compare with the receipt of the register: goods less the discount, the sum to pay and what was paid have to be equal.</translation>
    </message>
    <message>
        <source>Номери чеків двічі</source>
        <translation>Receipt numbers twice</translation>
    </message>
    <message>
        <source>Під номером {chek} на касі записано кілька документів.</source>
        <translation>Several documents have the number {chek} on the register.</translation>
    </message>
    <message>
        <source>Дві програми писали на касі водночас: звірте обидва документи з контрольною стрічкою.</source>
        <translation>Two programs wrote on the register at once: compare both documents with the journal tape.</translation>
    </message>
    <message>
        <source>Номери чеків у двох магазинах</source>
        <translation>Receipt numbers in two shops</translation>
    </message>
    <message>
        <source>Чек № {chek} цієї каси є і в іншому магазині (№ {otherShop}).</source>
        <translation>Receipt no. {chek} of this register is there in another shop, too (no. {otherShop}).</translation>
    </message>
    <message>
        <source>Номери каси не мають повторюватись: звірте обидва чеки з контрольною стрічкою.</source>
        <translation>Numbers of a register must not repeat: compare both receipts with the journal tape.</translation>
    </message>
    <message>
        <source>Пропущені номери чеків</source>
        <translation>Receipt numbers left out</translation>
    </message>
    <message>
        <source>Після чека № {chek} відразу йде № {nextChek}.</source>
        <translation>Behind receipt no. {chek} comes no. {nextChek}.</translation>
    </message>
    <message>
        <source>Між ними чеки видалено або не передано: звірте з контрольною стрічкою каси.</source>
        <translation>The receipts between them were deleted or not transmitted: compare with the journal tape of the register.</translation>
    </message>
    <message>
        <source>Пропущені номери змін</source>
        <translation>Shift numbers left out</translation>
    </message>
    <message>
        <source>Після зміни № {zvit} відразу йде № {nextZvit}.</source>
        <translation>Behind shift no. {zvit} comes no. {nextZvit}.</translation>
    </message>
    <message>
        <source>Між ними зміни видалено або не передано: звірте із Z-звітами каси.</source>
        <translation>The shifts between them were deleted or not transmitted: compare with the Z-reports of the register.</translation>
    </message>
    <message>
        <source>Кілька відкритих змін на касі</source>
        <translation>Several open shifts of a register</translation>
    </message>
    <message>
        <source>На касі відкрито кілька змін: № {numbers}.</source>
        <translation>Several shifts of the register are open: no. {numbers}.</translation>
    </message>
    <message>
        <source>Відкритою має бути одна: закрийте решту Z-звітом або зверніться до адміністратора бази.</source>
        <translation>Only one may be open: close the others by Z-reports or tell the database administrator.</translation>
    </message>
    <message>
        <source>Чеки кас, яких немає</source>
        <translation>Receipts of missing registers</translation>
    </message>
    <message>
        <source>Є чеки № {chek}–{high} каси № {kass}, а самої каси у базі немає.</source>
        <translation>There are receipts no. {chek}–{high} of register no. {kass}, but no such register.</translation>
    </message>
    <message>
        <source>Відновіть касу з копії бази: без неї її чеків немає у звітах за касами.</source>
        <translation>Restore the register from a backup: without it its receipts are in no report by register.</translation>
    </message>
    <message>
        <source>Від&apos;ємні залишки</source>
        <translation>Negative stock</translation>
    </message>
    <message>
        <source>Товар {goods} «{name}»: у залі {count_showroom:quantity}, на складі {count_syllable:quantity}.</source>
        <translation>Item {goods} “{name}”: {count_showroom:quantity} on the floor, {count_syllable:quantity} in the store room.</translation>
    </message>
    <message>
        <source>Запишіть прийом, переміщення чи передачу, яких бракує, або перерахуйте товар.</source>
        <translation>Write the receiving, the movement or the transfer that is missing, or count the goods.</translation>
    </message>
    <message>
        <source>Залишки товарів, яких немає</source>
        <translation>Stock of missing goods</translation>
    </message>
    <message>
        <source>Є залишок товару № {goods} (у залі {count_showroom:quantity}, на складі {count_syllable:quantity}), а самого товару немає.</source>
        <translation>There is stock of item no. {goods} ({count_showroom:quantity} on the floor, {count_syllable:quantity} in the store room), but no such item.</translation>
    </message>
    <message>
        <source>Відновіть товар з копії бази або попросіть адміністратора бази прибрати залишок.</source>
        <translation>Restore the item from a backup, or ask the database administrator to remove the stock.</translation>
    </message>
    <message>
        <source>Залишки магазинів, яких немає</source>
        <translation>Stock of missing shops</translation>
    </message>
    <message>
        <source>Є залишки магазину № {shop} (товарів: {count}), а самого магазину немає.</source>
        <translation>There is stock of shop no. {shop} (items: {count}), but no such shop.</translation>
    </message>
    <message>
        <source>Відновіть магазин з копії бази або попросіть адміністратора бази прибрати залишки.</source>
        <translation>Restore the shop from a backup, or ask the database administrator to remove the stock.</translation>
    </message>
    <message>
        <source>Акції, яких немає</source>
        <translation>Missing promotions</translation>
    </message>
    <message>
        <source>Товар № {goods} має акцію № {action}, якої немає.</source>
        <translation>Item no. {goods} has promotion no. {action}, which is missing.</translation>
    </message>
    <message>
        <source>Призначте товару іншу акцію в «Управлінні акціями».</source>
        <translation>Give another promotion to the item in “Promotions management”.</translation>
    </message>
    <message>
        <source>Контрольні цифри штрихкодів</source>
        <translation>Check digits of barcodes</translation>
    </message>
    <message>
        <source>Штрихкод {code} товару {goods} «{name}» не має вірної контрольної цифри.</source>
        <translation>Barcode {code} of item {goods} “{name}” has no right check digit.</translation>
    </message>
    <message>
        <source>Проскануйте товар ще раз і виправте код: такого коду сканер не прочитає.</source>
        <translation>Scan the item once more and correct the code: no scanner reads such a code.</translation>
    </message>
    <message>
        <source>Штрихкоди двічі</source>
        <translation>Barcodes twice</translation>
    </message>
    <message>
        <source>Той самий штрихкод ({codes}) мають товари № {goods}.</source>
        <translation>The items no. {goods} have the same barcode ({codes}).</translation>
    </message>
    <message>
        <source>Залиште код в одного товару: каса продає той, що знайде першим.</source>
        <translation>Leave the code to one item: the register sells the one that it finds first.</translation>
    </message>
    <message>
        <source>Ціни товарів, яких немає</source>
        <translation>Prices of missing goods</translation>
    </message>
    <message>
        <source>Є ціна {price:money} товару № {goods}, а самого товару немає.</source>
        <translation>There is a price {price:money} of item no. {goods}, but no such item.</translation>
    </message>
    <message>
        <source>Відновіть товар з копії бази або попросіть адміністратора бази прибрати ціну.</source>
        <translation>Restore the item from a backup, or ask the database administrator to remove the price.</translation>
    </message>
    <message>
        <source>Ціни магазинів, яких немає</source>
        <translation>Prices of missing shops</translation>
    </message>
    <message>
        <source>Товар {goods} «{name}» має ціну {price:money} для магазину № {shop}, якого немає.</source>
        <translation>Item {goods} “{name}” has a price {price:money} for shop no. {shop}, which is missing.</translation>
    </message>
    <message>
        <source>Відкрийте товар і приберіть цю ціну.</source>
        <translation>Open the item and remove that price.</translation>
    </message>
    <message>
        <source>Ціни груп магазинів, яких немає</source>
        <translation>Prices of missing shop groups</translation>
    </message>
    <message>
        <source>Товар {goods} «{name}» має ціну {price:money} для групи магазинів № {groupId}, якої немає.</source>
        <translation>Item {goods} “{name}” has a price {price:money} for shop group no. {groupId}, which is missing.</translation>
    </message>
    <message>
        <source>Відкрийте товар і виберіть для цієї ціни іншу групу.</source>
        <translation>Open the item and choose another group for that price.</translation>
    </message>
    <message>
        <source>Картки без рівня знижки</source>
        <translation>Cards without a discount level</translation>
    </message>
    <message>
        <source>Картка {card} має рівень знижки № {level}, якого немає.</source>
        <translation>Card {card} has discount level no. {level}, which is missing.</translation>
    </message>
    <message>
        <source>Відкрийте картку і виберіть їй рівень.</source>
        <translation>Open the card and choose a level for it.</translation>
    </message>
    <message>
        <source>Картки груп, яких немає</source>
        <translation>Cards of missing groups</translation>
    </message>
    <message>
        <source>Картка {card} належить до групи магазинів № {groupId}, якої немає.</source>
        <translation>Card {card} belongs to shop group no. {groupId}, which is missing.</translation>
    </message>
    <message>
        <source>Відкрийте картку і виберіть їй групу.</source>
        <translation>Open the card and choose a group for it.</translation>
    </message>
    <message>
        <source>Користувачі без групи прав</source>
        <translation>Users without a permission group</translation>
    </message>
    <message>
        <source>Користувач «{login}» належить до групи прав № {groupId}, якої немає: прав у нього немає.</source>
        <translation>User “{login}” belongs to permission group no. {groupId}, which is missing: there are no rights.</translation>
    </message>
    <message>
        <source>Відкрийте користувача і виберіть йому групу прав.</source>
        <translation>Open the user and choose a permission group.</translation>
    </message>
    <message>
        <source>Користувачі без магазину</source>
        <translation>Users without a shop</translation>
    </message>
    <message>
        <source>Користувач «{login}» працює в магазині № {shop}, якого немає.</source>
        <translation>User “{login}” works in shop no. {shop}, which is missing.</translation>
    </message>
    <message>
        <source>Відкрийте користувача і виберіть йому магазин.</source>
        <translation>Open the user and choose a shop.</translation>
    </message>
    <message>
        <source>Інші посилання в нікуди</source>
        <translation>Other references to nothing</translation>
    </message>
    <message>
        <source>У таблиці «{tableName}» є записи, де {columnName}={id}, а в таблиці «{target}» такого запису немає.</source>
        <translation>Table “{tableName}” has records with {columnName}={id}, but table “{target}” has no such record.</translation>
    </message>
    <message>
        <source>Відновіть запис з копії бази або попросіть адміністратора бази виправити те, що на нього вказує.</source>
        <translation>Restore the record from a backup, or ask the database administrator to correct what refers to it.</translation>
    </message>
    <message>
        <source>оборот А</source>
        <translation>turnover A</translation>
    </message>
    <message>
        <source>оборот Б</source>
        <translation>turnover Б</translation>
    </message>
    <message>
        <source>оборот В</source>
        <translation>turnover В</translation>
    </message>
    <message>
        <source>оборот Г</source>
        <translation>turnover Г</translation>
    </message>
    <message>
        <source>оборот Д</source>
        <translation>turnover Д</translation>
    </message>
    <message>
        <source>знижка</source>
        <translation>discount</translation>
    </message>
    <message>
        <source>готівка</source>
        <translation>cash</translation>
    </message>
    <message>
        <source>картка</source>
        <translation>card</translation>
    </message>
    <message>
        <source>сертифікат</source>
        <translation>certificate</translation>
    </message>
    <message>
        <source>інша оплата</source>
        <translation>other payment</translation>
    </message>
    <message>
        <source>повернення А</source>
        <translation>returns A</translation>
    </message>
    <message>
        <source>повернення Б</source>
        <translation>returns Б</translation>
    </message>
    <message>
        <source>повернення В</source>
        <translation>returns В</translation>
    </message>
    <message>
        <source>повернення Г</source>
        <translation>returns Г</translation>
    </message>
    <message>
        <source>повернення Д</source>
        <translation>returns Д</translation>
    </message>
    <message>
        <source>повернено грошей</source>
        <translation>money given back</translation>
    </message>
    <message>
        <source>чеків повернення</source>
        <translation>receipts of returns</translation>
    </message>
    <message>
        <source>чеків</source>
        <translation>receipts</translation>
    </message>
    <message>
        <source>чеків зі знижкою</source>
        <translation>discounted receipts</translation>
    </message>
    <message>
        <source>%1 у зміні %2, за чеками %3</source>
        <translation>%1 in the shift %2, by the receipts %3</translation>
    </message>
    <message>
        <source>вона відкрита, а Z-чек уже є</source>
        <translation>it is open, but has a Z-receipt already</translation>
    </message>
    <message>
        <source>вона закрита, а Z-чека немає</source>
        <translation>it is closed, but has no Z-receipt</translation>
    </message>
    <message>
        <source>у Z-чеку %1, а оборот зміни без знижки %2</source>
        <translation>%1 in the Z-receipt, but the turnover of the shift less the discount is %2</translation>
    </message>
    <message>
        <source>№ %1</source>
        <translation>no. %1</translation>
    </message>
    <message>
        <source>Будова бази</source>
        <translation>Definitions of the tables</translation>
    </message>
    <message>
        <source>Каси, що мають зміни і чеки</source>
        <translation>Registers with shifts and receipts</translation>
    </message>
    <message>
        <source>Зміни і чеки кас</source>
        <translation>Shifts and receipts of the registers</translation>
    </message>
    <message>
        <source>Помилок не знайдено.</source>
        <translation>Nothing wrong was found.</translation>
    </message>
    <message>
        <source>Знайдено помилок: %1.</source>
        <translation>Found to be wrong: %1.</translation>
    </message>
    <message>
        <source>Перевірок, що не вдалися: %1.</source>
        <translation>Checks that failed: %1.</translation>
    </message>
    <message>
        <source>Перевірку зупинено: показано те, що знайдено доти.</source>
        <translation>The check was stopped: what was found until then is shown.</translation>
    </message>
    <message>
        <source>Перевірку перервано: зв&apos;язок із сервером утрачено. Повторіть її, коли він буде.</source>
        <translation>The check was cut short: the server was lost. Repeat it when it is back.</translation>
    </message>
    <message>
        <source>Таблиці «%1» немає.</source>
        <translation>There is no table “%1”.</translation>
    </message>
    <message>
        <source>У таблиці «%1» немає колонки %2 (%3).</source>
        <translation>Table “%1” has no column %2 (%3).</translation>
    </message>
    <message>
        <source>Таблиця «%1», колонка %2: має бути %3, а є %4.</source>
        <translation>Table “%1”, column %2: it should be %3 and is %4.</translation>
    </message>
    <message>
        <source>У таблиці «%1» є зайва колонка %2 (%3): вона не приймає записів без значення.</source>
        <translation>Table “%1” has a column %2 too many (%3): it takes no record without a value.</translation>
    </message>
    <message>
        <source>У таблиці «%1» немає ключа %2.</source>
        <translation>Table “%1” has no key %2.</translation>
    </message>
    <message>
        <source>У таблиці «%1» є зайвий ключ %2: він може не прийняти записів.</source>
        <translation>Table “%1” has a key %2 too many: it may refuse records.</translation>
    </message>
    <message>
        <source>У таблиці «%1» немає зовнішнього ключа %2.</source>
        <translation>Table “%1” has no foreign key %2.</translation>
    </message>
    <message>
        <source>Таблиця «%1»: зовнішній ключ має бути %2, а є %3.</source>
        <translation>Table “%1”: the foreign key should be %2 and is %3.</translation>
    </message>
    <message>
        <source>У таблиці «%1» є зайвий зовнішній ключ %2.</source>
        <translation>Table “%1” has a foreign key %2 too many.</translation>
    </message>
    <message>
        <source>Таблиця «%1» зберігається у %2 замість %3: без транзакцій і зовнішніх ключів.</source>
        <translation>Table “%1” is kept in %2 instead of %3: without transactions and foreign keys.</translation>
    </message>
    <message>
        <source>Таблиця «%1» має порівняння %2, а має бути %3.</source>
        <translation>Table “%1” has the collation %2 and should have %3.</translation>
    </message>
    <message>
        <source>Таблиця «%1», колонка %2 має порівняння %3, а має бути %4.</source>
        <translation>Table “%1”, column %2 has the collation %3 and should have %4.</translation>
    </message>
</context>
<context>
    <name>InvoiceDialog</name>
    <message>
        <source>Склад</source>
        <translation>Store room</translation>
    </message>
    <message>
        <source>Зал</source>
        <translation>Shop floor</translation>
    </message>
    <message>
        <source>Нічого не записано: у вас тепер є право лише переглядати.</source>
        <translation>Nothing was written: by now you may only view.</translation>
    </message>
</context>
<context>
    <name>InvoiceList</name>
    <message>
        <source>у дорозі</source>
        <translation>on the way</translation>
    </message>
    <message>
        <source>прийнято</source>
        <translation>accepted</translation>
    </message>
    <message>
        <source>прийнято з різницею</source>
        <translation>accepted with differences</translation>
    </message>
    <message>
        <source>скасовано</source>
        <translation>cancelled</translation>
    </message>
    <message>
        <source>№</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>Стан</source>
        <translation>State</translation>
    </message>
    <message>
        <source>З магазину</source>
        <translation>From shop</translation>
    </message>
    <message>
        <source>До магазину</source>
        <translation>To shop</translation>
    </message>
    <message>
        <source>Відправлено</source>
        <translation>Sent at</translation>
    </message>
    <message>
        <source>Хто відправив</source>
        <translation>Sent by</translation>
    </message>
    <message>
        <source>Прийнято / скасовано</source>
        <translation>Accepted / cancelled</translation>
    </message>
    <message>
        <source>Хто прийняв / скасував</source>
        <translation>Accepted / cancelled by</translation>
    </message>
    <message>
        <source>Позицій</source>
        <translation>Lines</translation>
    </message>
    <message>
        <source>Надіслано</source>
        <translation>Sent</translation>
    </message>
    <message>
        <source>Прийнято</source>
        <translation>Accepted</translation>
    </message>
    <message>
        <source>Різниця</source>
        <translation>Difference</translation>
    </message>
    <message>
        <source>Позицій з різницею</source>
        <translation>Lines that differ</translation>
    </message>
    <message>
        <source>Повідомлення відправника</source>
        <translation>Message of the sender</translation>
    </message>
    <message>
        <source>Повідомлення одержувача</source>
        <translation>Message of the receiver</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Штрихкод</source>
        <translation>Barcode</translation>
    </message>
    <message>
        <source>Назва</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Готівка</source>
        <translation>Cash</translation>
    </message>
    <message>
        <source>Сума</source>
        <translation>Sum</translation>
    </message>
</context>
<context>
    <name>InvoicePane</name>
    <message>
        <source>Нова переда&amp;ча…</source>
        <translation>New trans&amp;fer…</translation>
    </message>
    <message>
        <source>При&amp;йняти…</source>
        <translation>&amp;Accept…</translation>
    </message>
    <message>
        <source>Скас&amp;увати передачу…</source>
        <translation>&amp;Cancel transfer…</translation>
    </message>
    <message>
        <source>Д&amp;рук накладної…</source>
        <translation>Print the &amp;document…</translation>
    </message>
    <message>
        <source>Товари накладної</source>
        <translation>Goods of the invoice</translation>
    </message>
    <message>
        <source>Виберіть накладну у списку.</source>
        <translation>Choose an invoice in the list.</translation>
    </message>
    <message>
        <source>У накладній немає товарів.</source>
        <translation>The invoice has no goods.</translation>
    </message>
    <message>
        <source>Накладна на передачу товару № %1</source>
        <translation>Goods transfer invoice No. %1</translation>
    </message>
    <message>
        <source>Акт приймання товару № %1</source>
        <translation>Goods acceptance note No. %1</translation>
    </message>
    <message>
        <source>Скасована накладна № %1</source>
        <translation>Cancelled invoice No. %1</translation>
    </message>
    <message>
        <source>З магазину: %1</source>
        <translation>From shop: %1</translation>
    </message>
    <message>
        <source>До магазину: %1</source>
        <translation>To shop: %1</translation>
    </message>
    <message>
        <source>Відправлено: %1</source>
        <translation>Sent: %1</translation>
    </message>
    <message>
        <source>Повідомлення відправника: %1</source>
        <translation>Message of the sender: %1</translation>
    </message>
    <message>
        <source>Скасовано: %1</source>
        <translation>Cancelled: %1</translation>
    </message>
    <message>
        <source>Прийнято: %1</source>
        <translation>Accepted: %1</translation>
    </message>
    <message>
        <source>Повідомлення одержувача: %1</source>
        <translation>Message of the receiver: %1</translation>
    </message>
    <message>
        <source>Позицій: %1, надіслано: %2</source>
        <translation>Lines: %1, sent: %2</translation>
    </message>
    <message>
        <source>Прийнято: %1, різниця: %2, позицій з різницею: %3</source>
        <translation>Accepted: %1, difference: %2, lines that differ: %3</translation>
    </message>
    <message>
        <source>Відправив: ____________________   Прийняв: ____________________</source>
        <translation>Sent by: ____________________   Accepted by: ____________________</translation>
    </message>
    <message>
        <source>Готівка накладної</source>
        <translation>Cash of the invoice</translation>
    </message>
    <message>
        <source>Накладна на передачу готівки № %1</source>
        <translation>Invoice of cash No. %1</translation>
    </message>
    <message>
        <source>Акт приймання готівки № %1</source>
        <translation>Acceptance of cash No. %1</translation>
    </message>
    <message>
        <source>Видав: ____________________   Переніс: ____________________   Прийняв: ____________________</source>
        <translation>Issued: ____________________   Carried: ____________________   Accepted: ____________________</translation>
    </message>
    <message>
        <source>Прийнято не стільки, скільки надіслано.</source>
        <translation>Another quantity was accepted than was sent.</translation>
    </message>
</context>
<context>
    <name>InvoiceReader</name>
    <message>
        <source>Накладної № %1 немає. Оновіть список.</source>
        <translation>There is no invoice No. %1. Reload the list.</translation>
    </message>
    <message>
        <source>Накладну № %1 тим часом уже закрито.</source>
        <translation>Invoice No. %1 has been closed meanwhile.</translation>
    </message>
</context>
<context>
    <name>InvoiceWriter</name>
    <message>
        <source>Магазину № %1 вже немає. Виберіть інший.</source>
        <translation>Shop No. %1 is gone. Choose another one.</translation>
    </message>
    <message>
        <source>Магазин «%1» заблоковано: товар до нього і з нього не передають. Нічого не записано.</source>
        <translation>Shop “%1” is blocked: no goods are handed over to it or from it. Nothing was saved.</translation>
    </message>
    <message>
        <source>«%1»: стільки в магазині не вміститься: залишок став би більшим за %2. Перевірте кількість.</source>
        <translation>“%1”: the shop cannot hold so much: the stock would be above %2. Check the quantity.</translation>
    </message>
    <message>
        <source>вже скасовано</source>
        <translation>is cancelled already</translation>
    </message>
    <message>
        <source>вже прийнято</source>
        <translation>is accepted already</translation>
    </message>
    <message>
        <source>користувач невідомий</source>
        <translation>user unknown</translation>
    </message>
    <message>
        <source>Накладну № %1 %2: %3, %4. Нічого не записано.</source>
        <translation>Invoice No. %1 %2: %3, %4. Nothing was saved.</translation>
    </message>
    <message>
        <source>Накладної на товар № %1 немає. Оновіть список.</source>
        <translation>There is no goods invoice No. %1. Reload the list.</translation>
    </message>
    <message>
        <source>«%1»: залишок став би меншим за −%2. Зменште кількість.</source>
        <translation>“%1”: the stock would be below −%2. Lower the quantity.</translation>
    </message>
    <message>
        <source>«%1» не пораховано: введіть кількість, 0 — коли товару немає.</source>
        <translation>“%1” is not counted: enter the quantity, 0 if there is none.</translation>
    </message>
    <message>
        <source>«%1»: кількість має бути від 0 до %2.</source>
        <translation>“%1”: the quantity has to be from 0 to %2.</translation>
    </message>
    <message>
        <source>Рядки накладної тим часом змінились. Відкрийте її ще раз.</source>
        <translation>The lines of the invoice have changed meanwhile. Open it again.</translation>
    </message>
    <message>
        <source>Виберіть магазин, до якого передається товар.</source>
        <translation>Choose the shop to which the goods are handed over.</translation>
    </message>
    <message>
        <source>Товар не можна передати до того самого магазину. Виберіть інший.</source>
        <translation>Goods cannot be handed over to the same shop. Choose another one.</translation>
    </message>
    <message>
        <source>У передачі немає товарів.</source>
        <translation>The transfer has no goods.</translation>
    </message>
    <message>
        <source>«%1»: введіть кількість, більшу за нуль.</source>
        <translation>“%1”: enter a quantity above zero.</translation>
    </message>
    <message>
        <source>«%1»: разом не може бути більше ніж %2.</source>
        <translation>“%1”: together there cannot be more than %2.</translation>
    </message>
    <message>
        <source>Нічого не записано. Повторіть.</source>
        <translation>Nothing was saved. Try again.</translation>
    </message>
    <message>
        <source>Залишки зараз записує інша програма. Нічого не записано. Повторіть.</source>
        <translation>Another program is writing the stock now. Nothing was saved. Try again.</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався під час запису, і невідомо, чи його збережено. Зачекайте, доки зв&apos;язок відновиться, і повторіть: програма спершу запитає сервер.</source>
        <translation>The connection broke while saving, and it is not known whether it was saved. Wait until the connection is back and try again: the program will first ask the server.</translation>
    </message>
    <message>
        <source>Магазин «%1» заблоковано: готівку до нього і з нього не передають. Нічого не записано.</source>
        <translation>The shop “%1” is blocked: no cash is sent to it or from it. Nothing was written.</translation>
    </message>
    <message>
        <source>Накладної на готівку № %1 немає. Оновіть список.</source>
        <translation>There is no invoice of cash No. %1. Reload the list.</translation>
    </message>
</context>
<context>
    <name>InvoicesTab</name>
    <message>
        <source>Передачу скасовує магазин-відправник, а його серед ваших немає.</source>
        <translation>The sending shop cancels a transfer, and it is none of yours.</translation>
    </message>
    <message>
        <source>Лише перегляд: продавати може користувач з повним дозволом.</source>
        <translation>View only: selling needs full permission.</translation>
    </message>
    <message>
        <source>Передач між магазинами ще не було.</source>
        <translation>There were no transfers between shops yet.</translation>
    </message>
    <message>
        <source>Товар приймає магазин-одержувач, а його серед ваших немає.</source>
        <translation>The receiving shop accepts the goods, and it is none of yours.</translation>
    </message>
    <message>
        <source>Лише перегляд: готівку передає користувач з повним дозволом.</source>
        <translation>View only: cash is sent by a user with full right.</translation>
    </message>
    <message>
        <source>Готівку між магазинами ще не передавали.</source>
        <translation>No cash was moved between shops yet.</translation>
    </message>
    <message>
        <source>Готівку приймає магазин-одержувач, а його серед ваших немає.</source>
        <translation>Cash is accepted by the receiving shop, which is none of yours.</translation>
    </message>
    <message>
        <source>Усі напрямки</source>
        <translation>All directions</translation>
    </message>
    <message>
        <source>Відправлені звідси</source>
        <translation>Sent from here</translation>
    </message>
    <message>
        <source>Надіслані сюди</source>
        <translation>Sent to here</translation>
    </message>
    <message>
        <source>Усі стани</source>
        <translation>All states</translation>
    </message>
    <message>
        <source>Цю накладну вже закрито.</source>
        <translation>This invoice is closed already.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Вікно закрито, а чи записано накладну, невідомо: зв&apos;язок обірвався під час запису. Перевірте накладну у списку.</source>
        <translation>The window is closed, and it is not known whether the invoice was saved: the connection broke while saving. Check the invoice in the list.</translation>
    </message>
</context>
<context>
    <name>InvoicesTabFilter</name>
    <message>
        <source>&amp;Накладна №:</source>
        <translation>Invoice &amp;No.:</translation>
    </message>
    <message>
        <source>Номер</source>
        <translation>Number</translation>
    </message>
    <message>
        <source>Напрямок</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>Стан</source>
        <translation>State</translation>
    </message>
    <message>
        <source>&amp;Лише за дні:</source>
        <translation>On&amp;ly days:</translation>
    </message>
    <message>
        <source>Зупинити</source>
        <translation>Stop</translation>
    </message>
</context>
<context>
    <name>Job</name>
    <message>
        <source>зв&apos;язок втрачено, підключаюся знову…</source>
        <translation>the connection is lost, connecting again…</translation>
    </message>
</context>
<context>
    <name>JobList</name>
    <message>
        <source>Завдання</source>
        <translation>Jobs</translation>
    </message>
    <message>
        <source>Показати завдання (Ctrl+J)</source>
        <translation>Show the jobs (Ctrl+J)</translation>
    </message>
    <message>
        <source>Завдання: %1</source>
        <translation>Jobs: %1</translation>
    </message>
    <message>
        <source>До завдань у рядку стану</source>
        <translation>To the tasks in the status bar</translation>
    </message>
</context>
<context>
    <name>JobPanel</name>
    <message>
        <source>Скільки зроблено</source>
        <translation>How much is done</translation>
    </message>
    <message>
        <source>%1 з %2</source>
        <translation>%1 of %2</translation>
    </message>
</context>
<context>
    <name>JobRow</name>
    <message>
        <source>%1, ще %2</source>
        <translation>%1, %2 left</translation>
    </message>
    <message>
        <source>Скільки зроблено: %1</source>
        <translation>How much is done: %1</translation>
    </message>
    <message>
        <source>Скасувати</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Скасувати: %1</source>
        <translation>Cancel: %1</translation>
    </message>
    <message>
        <source>Закрити</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Закрити: %1</source>
        <translation>Close: %1</translation>
    </message>
    <message>
        <source>Зупиняється…</source>
        <translation>Stopping…</translation>
    </message>
    <message>
        <source>%1 – скасовано</source>
        <translation>%1 – cancelled</translation>
    </message>
</context>
<context>
    <name>JobStatements</name>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
</context>
<context>
    <name>KeyList</name>
    <message>
        <source>Вікно програми</source>
        <translation>The program&apos;s window</translation>
    </message>
    <message>
        <source>Меню «%1»</source>
        <translation>Menu &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Вкладка «%1»</source>
        <translation>Tab &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Клавіші</source>
        <translation>Keys</translation>
    </message>
    <message>
        <source>Де</source>
        <translation>Where</translation>
    </message>
    <message>
        <source>Що роблять</source>
        <translation>What they do</translation>
    </message>
    <message>
        <source>Таких клавіш немає.</source>
        <translation>There are no such keys.</translation>
    </message>
    <message>
        <source>клавіша або що вона робить</source>
        <translation>a key, or what it does</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>&amp;Закрити</source>
        <translation>&amp;Close</translation>
    </message>
</context>
<context>
    <name>Launch</name>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Помилка в IP адресі</source>
        <translation>Error in the IP address</translation>
    </message>
    <message>
        <source>Помилка запуску зовнішньої програми.</source>
        <translation>The external program failed to start.</translation>
    </message>
    <message>
        <source>Не вірний шлях до програми:</source>
        <translation>Wrong path to the program:</translation>
    </message>
    <message>
        <source>Усі файли (*)</source>
        <translation>All files (*)</translation>
    </message>
</context>
<context>
    <name>LaunchMenu</name>
    <message>
        <source>Програма з налаштувань: %1</source>
        <translation>Program of the settings: %1</translation>
    </message>
</context>
<context>
    <name>LineState</name>
    <message>
        <source>На зв&apos;язку</source>
        <translation>On line</translation>
    </message>
    <message>
        <source>Не всі каси на зв&apos;язку</source>
        <translation>Not all cash registers are on line</translation>
    </message>
    <message>
        <source>Немає зв&apos;язку</source>
        <translation>Off line</translation>
    </message>
</context>
<context>
    <name>ListColumns</name>
    <message>
        <source>Без &amp;сортування</source>
        <translation>&amp;Unsorted</translation>
    </message>
    <message>
        <source>Стовпці як с&amp;початку</source>
        <translation>Columns as at &amp;first</translation>
    </message>
    <message>
        <source>Клацніть, щоб відсортувати. Стовпці списку: права кнопка миші або Shift+F10 у списку.</source>
        <translation>Click to sort. Columns of the list: right mouse button, or Shift+F10 in the list.</translation>
    </message>
    <message>
        <source>Стовпці списку</source>
        <translation>Columns of the list</translation>
    </message>
</context>
<context>
    <name>ListFilter</name>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>До поля пошуку</source>
        <translation>To the search field</translation>
    </message>
</context>
<context>
    <name>ListPages</name>
    <message>
        <source>сторінка %1 з %2</source>
        <translation>page %1 of %2</translation>
    </message>
</context>
<context>
    <name>ListPane</name>
    <message>
        <source>Друк списку…</source>
        <translation>Print list…</translation>
    </message>
    <message>
        <source>Список у PDF…</source>
        <translation>List to PDF…</translation>
    </message>
    <message>
        <source>Завантаження…</source>
        <translation>Loading…</translation>
    </message>
    <message>
        <source>Завантаження зупинено.</source>
        <translation>Loading stopped.</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Список не прочитано: сервер відповів помилкою.</source>
        <translation>The list is not read: the server answered with an error.</translation>
    </message>
    <message>
        <source>Записів: %1</source>
        <translation>Records: %1</translation>
    </message>
    <message>
        <source>Складено: %1</source>
        <translation>Made: %1</translation>
    </message>
    <message>
        <source>Сортується… Esc зупиняє.</source>
        <translation>Sorting… Esc stops it.</translation>
    </message>
    <message>
        <source>Вибрано рядків: %1. Копіюється не більше ніж %2: довші списки зберігайте у CSV або PDF.</source>
        <translation>Rows selected: %1. No more than %2 are copied: save longer lists as CSV or PDF.</translation>
    </message>
    <message>
        <source>Копіювання рядків: %1</source>
        <translation>Copying rows: %1</translation>
    </message>
    <message>
        <source>Скопійовано рядків: %1.</source>
        <translation>Rows copied: %1.</translation>
    </message>
    <message>
        <source>У списку: копіювати виділені рядки</source>
        <translation>In the list: copy the selected lines</translation>
    </message>
    <message>
        <source>У списку: виділити всі рядки</source>
        <translation>In the list: select all lines</translation>
    </message>
    <message>
        <source>У списку: стовпці, їхній порядок і вигляд</source>
        <translation>In the list: its columns, their order and look</translation>
    </message>
    <message>
        <source>У списку: зупинити впорядкування</source>
        <translation>In the list: stop the sorting</translation>
    </message>
    <message>
        <source>Відкрити рядок, як подвійним клацанням</source>
        <translation>Open the line, as a double click does</translation>
    </message>
</context>
<context>
    <name>ListPrinter</name>
    <message>
        <source>Готуються сторінки…</source>
        <translation>Preparing the pages…</translation>
    </message>
    <message>
        <source>&amp;Скасувати</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Перегляд перед друком</source>
        <translation>Print preview</translation>
    </message>
    <message>
        <source>Зберегти PDF</source>
        <translation>Save as PDF</translation>
    </message>
</context>
<context>
    <name>ListSelection</name>
    <message>
        <source>Вибрано: %1</source>
        <translation>Selected: %1</translation>
    </message>
    <message>
        <source>Сума</source>
        <translation>Sum</translation>
    </message>
    <message>
        <source>Сума «%1»</source>
        <translation>Sum of “%1”</translation>
    </message>
</context>
<context>
    <name>Login</name>
    <message>
        <source>Перший користувач цієї бази: admin, пароль порожній. Увійшовши, змініть пароль: Користувачі → Змінити пароль.</source>
        <translation>The first user of this database is admin, the password is empty. Once logged in, change the password: Users → Change password.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
</context>
<context>
    <name>MemberPreview</name>
    <message>
        <source>Показати як: %1</source>
        <translation>Show as: %1</translation>
    </message>
    <message>
        <source>Меню і команди, які бачить користувач групи &quot;%1&quot;. Груп магазинів: %2, магазинів для передачі: %3. Експорт списків: %4.</source>
        <translation>Menus and commands that a user of the group “%1” sees. Shop groups: %2, shops to send to: %3. Export of lists: %4.</translation>
    </message>
    <message>
        <source>так</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>ні</source>
        <translation>no</translation>
    </message>
    <message>
        <source>Користувач групи &quot;%1&quot; не увійде: &quot;У вас немає доступу до бекофісу.&quot;</source>
        <translation>A user of the group “%1” will not get in: “You have no access to the back office.”</translation>
    </message>
    <message>
        <source>Меню</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Команди</source>
        <translation>Commands</translation>
    </message>
    <message>
        <source>&amp;Закрити</source>
        <translation>&amp;Close</translation>
    </message>
</context>
<context>
    <name>MessageList</name>
    <message>
        <source>Помилка</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Попередження</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Повідомлення</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>Файл: %1, рядок: %2</source>
        <translation>File: %1, line: %2</translation>
    </message>
    <message>
        <source>разів: %1, уперше %2</source>
        <translation>%1 times, first %2</translation>
    </message>
    <message>
        <source>Що це</source>
        <translation>What it is</translation>
    </message>
    <message>
        <source>Час</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Копіювати повідомлення</source>
        <translation>Copy the message</translation>
    </message>
    <message>
        <source>Копіювати</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Копіювати все</source>
        <translation>Copy all</translation>
    </message>
    <message>
        <source> (разів: %1)</source>
        <translation> (%1 times)</translation>
    </message>
    <message>
        <source>Повідомлення: %1</source>
        <translation>Messages: %1</translation>
    </message>
    <message>
        <source>Нових повідомлень немає</source>
        <translation>No new messages</translation>
    </message>
    <message>
        <source>Нових повідомлень: %1, з них помилок: %2</source>
        <translation>New messages: %1, errors among them: %2</translation>
    </message>
    <message>
        <source>У цьому сеансі повідомлень не було.</source>
        <translation>There were no messages in this session.</translation>
    </message>
    <message>
        <source>Показано найновіші, усього: %1</source>
        <translation>The newest are kept, in all: %1</translation>
    </message>
    <message>
        <source>Лише помилки</source>
        <translation>Errors only</translation>
    </message>
</context>
<context>
    <name>MessageWords</name>
    <message>
        <source>Такий запис у базі вже є: значення, яке не повинно повторюватись, зайняте. Змініть його і запишіть ще раз.</source>
        <translation>Such a record exists already: a value that must not be there twice is taken. Change it and save again.</translation>
    </message>
    <message>
        <source>Запис не можна видалити чи змінити: на нього посилаються інші записи.</source>
        <translation>The record cannot be deleted or changed: other records refer to it.</translation>
    </message>
    <message>
        <source>Запису, на який посилаються ці дані, у базі вже немає. Оновіть список (F5) і оберіть інший.</source>
        <translation>The record that these data refer to is not in the database any more. Reload the list (F5) and choose another one.</translation>
    </message>
    <message>
        <source>Текст задовгий для свого поля. Скоротіть його і запишіть ще раз.</source>
        <translation>The text is too long for its field. Shorten it and save again.</translation>
    </message>
    <message>
        <source>Число завелике або замале для свого поля. Виправте його і запишіть ще раз.</source>
        <translation>The number is too great or too small for its field. Correct it and save again.</translation>
    </message>
    <message>
        <source>Обов&apos;язкове значення не вказано, або того, що обрано, у базі вже немає. Оновіть список (F5) і спробуйте ще раз.</source>
        <translation>A value that is required is missing, or what was chosen is not in the database any more. Reload the list (F5) and try again.</translation>
    </message>
    <message>
        <source>У базі бракує таблиці. Зверніться до адміністратора: відсутні таблиці додає «Сервіс – Створити таблиці».</source>
        <translation>A table is missing in the database. Ask the administrator: &quot;Service – Create tables&quot; adds what is missing.</translation>
    </message>
    <message>
        <source>Таблиця в базі не така, як її знає програма. Зверніться до адміністратора бази.</source>
        <translation>A table of the database is not as the program knows it. Ask the administrator of the database.</translation>
    </message>
    <message>
        <source>База даних не впустила програму. Перевірте користувача і пароль у налаштуваннях або зверніться до адміністратора бази.</source>
        <translation>The database did not let the program in. Check user and password in the settings, or ask the administrator of the database.</translation>
    </message>
    <message>
        <source>Програмі не дозволено робити це в базі даних. Зверніться до адміністратора бази.</source>
        <translation>The program may not do this in the database. Ask the administrator of the database.</translation>
    </message>
    <message>
        <source>Бази з такою назвою на сервері немає. Перевірте налаштування.</source>
        <translation>The server has no database of that name. Check the settings.</translation>
    </message>
    <message>
        <source>На сервері забагато підключень. Повторіть за хвилину або зверніться до адміністратора бази.</source>
        <translation>The server has too many connections. Try again in a minute, or ask the administrator of the database.</translation>
    </message>
    <message>
        <source>На сервері бази закінчилось місце. Зверніться до адміністратора бази.</source>
        <translation>The server of the database has run out of space. Ask the administrator of the database.</translation>
    </message>
    <message>
        <source>Сервер бази зараз дозволяє лише читати. Зверніться до адміністратора бази.</source>
        <translation>The server of the database allows only reading just now. Ask the administrator of the database.</translation>
    </message>
    <message>
        <source>Запит перервано на сервері. Спробуйте ще раз.</source>
        <translation>The statement was interrupted on the server. Try again.</translation>
    </message>
    <message>
        <source>Ці дані зараз тримає інша програма. Повторіть за хвилину.</source>
        <translation>Another program holds these data just now. Try again in a minute.</translation>
    </message>
    <message>
        <source>Інша програма щойно записала ті самі дані. Нічого не записано. Повторіть.</source>
        <translation>Another program has just written the same data. Nothing was written. Try again.</translation>
    </message>
    <message>
        <source>Немає зв&apos;язку із сервером бази даних. Програма підключається знову сама; перевірте мережу, якщо це триває.</source>
        <translation>There is no connection to the server of the database. The program connects again by itself; check the network if this lasts.</translation>
    </message>
    <message>
        <source>Зв&apos;язок із сервером бази даних втрачено. Програма підключається знову сама; перевірте мережу, якщо це триває.</source>
        <translation>The connection to the server of the database is lost. The program connects again by itself; check the network if this lasts.</translation>
    </message>
    <message>
        <source>База даних не виконала запит. Спробуйте ще раз; якщо це повториться, передайте подробиці адміністратору.</source>
        <translation>The database did not carry out the statement. Try again; if it happens again, give the details to the administrator.</translation>
    </message>
</context>
<context>
    <name>NarrowBar</name>
    <message>
        <source>Показати всі</source>
        <translation>Show all</translation>
    </message>
    <message>
        <source>Показано лише: %1</source>
        <translation>Only shown: %1</translation>
    </message>
</context>
<context>
    <name>NextStep</name>
    <message>
        <source>Щоб почати продаж, додайте магазин (Таблиці → Магазини, Ctrl+N), його касу (Таблиці → Обладнання) і товари з цінами (Таблиці → Товари).</source>
        <translation>To begin selling, add a shop (Tables → Shops, Ctrl+N), its cash register (Tables → Equipment) and goods with prices (Tables → Goods).</translation>
    </message>
    <message>
        <source>Щоб почати продаж, додайте касу магазину (Таблиці → Обладнання, Ctrl+N) і товари з цінами (Таблиці → Товари).</source>
        <translation>To begin selling, add a cash register of the shop (Tables → Equipment, Ctrl+N) and goods with prices (Tables → Goods).</translation>
    </message>
    <message>
        <source>Щоб почати продаж, додайте товари з цінами (Таблиці → Товари, Ctrl+N).</source>
        <translation>To begin selling, add goods with prices (Tables → Goods, Ctrl+N).</translation>
    </message>
    <message>
        <source>Щоб товар можна було продати, позначте в ньому магазини: Таблиці → Товари, F4, «Продається в магазинах».</source>
        <translation>So that an item can be sold, tick its shops in it: Tables → Goods, F4, “Sold in the shops”.</translation>
    </message>
    <message>
        <source>Магазин: адреса, група, рядки чека</source>
        <translation>A shop: address, group, lines of the receipt</translation>
    </message>
    <message>
        <source>Додати магазин…</source>
        <translation>Add a shop…</translation>
    </message>
    <message>
        <source>Каса магазину</source>
        <translation>A register of the shop</translation>
    </message>
    <message>
        <source>Додати касу…</source>
        <translation>Add a register…</translation>
    </message>
    <message>
        <source>Товари з цінами і штрихкодами; багато товарів імпортуються з прайс-листа</source>
        <translation>Goods with prices and barcodes; many of them are imported from a price list</translation>
    </message>
    <message>
        <source>Додати товар…</source>
        <translation>Add an item…</translation>
    </message>
    <message>
        <source>Де товар продається: у товарі (F4) список «Продається в магазинах»</source>
        <translation>Where an item is sold: in the item (F4) the list “Sold in the shops”</translation>
    </message>
    <message>
        <source>Відкрити товари</source>
        <translation>Open the goods</translation>
    </message>
    <message>
        <source>Перший продаж: він відкриє зміну</source>
        <translation>The first sale: it opens a shift</translation>
    </message>
    <message>
        <source>Відкрити продаж</source>
        <translation>Open the sale</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Повідомлення</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Показати чек</source>
        <translation>Show receipt</translation>
    </message>
    <message>
        <source>Др&amp;укувати чек</source>
        <translation>P&amp;rint receipt</translation>
    </message>
    <message>
        <source>Показати накладну</source>
        <translation>Show invoice</translation>
    </message>
    <message>
        <source>Др&amp;укувати накладну</source>
        <translation>P&amp;rint invoice</translation>
    </message>
</context>
<context>
    <name>NumberField</name>
    <message>
        <source>Введіть суму, наприклад 1234,50.</source>
        <translation>Enter an amount, for example 1234.50.</translation>
    </message>
    <message>
        <source>%1 схоже на штрихкод, а не на суму. Суму вводять так: 1234,50.</source>
        <translation>%1 looks like a barcode, not like an amount. Write an amount like this: 1234.50.</translation>
    </message>
    <message>
        <source>«%1» не є сумою. Суму вводять так: 1234,50 або 1 234.50.</source>
        <translation>&quot;%1&quot; is not an amount. Write it like this: 1234,50 or 1 234.50.</translation>
    </message>
    <message>
        <source>Введіть кількість, наприклад 2 або 0,250.</source>
        <translation>Enter a quantity, for example 2 or 0.250.</translation>
    </message>
    <message>
        <source>%1 схоже на штрихкод, а не на кількість. Кількість вводять так: 2 або 0,250.</source>
        <translation>%1 looks like a barcode, not like a quantity. Write a quantity like this: 2 or 0.250.</translation>
    </message>
    <message>
        <source>«%1» не є кількістю. Кількість вводять так: 2 або 0,250.</source>
        <translation>&quot;%1&quot; is not a quantity. Write it like this: 2 or 0.250.</translation>
    </message>
    <message>
        <source>Введіть ставку у відсотках, наприклад 17,5.</source>
        <translation>Enter a rate in per cent, for example 17.5.</translation>
    </message>
    <message>
        <source>%1 схоже на штрихкод, а не на відсотки. Їх вводять так: 17,5.</source>
        <translation>%1 looks like a barcode, not like a per cent rate. Write it like this: 17.5.</translation>
    </message>
    <message>
        <source>«%1» не є числом відсотків. Їх вводять так: 17,5.</source>
        <translation>&quot;%1&quot; is not a per cent rate. Write it like this: 17.5.</translation>
    </message>
    <message>
        <source>Тут не може бути менше, ніж %1.</source>
        <translation>This cannot be less than %1.</translation>
    </message>
    <message>
        <source>Тут не може бути більше, ніж %1.</source>
        <translation>This cannot be more than %1.</translation>
    </message>
</context>
<context>
    <name>OnLineGrid</name>
    <message>
        <source>на зв&apos;язку</source>
        <translation>on line</translation>
    </message>
    <message>
        <source>без зв&apos;язку</source>
        <translation>off line</translation>
    </message>
    <message>
        <source>%1: %2
%3 – %4</source>
        <translation>%1: %2
%3 – %4</translation>
    </message>
    <message>
        <source>триває</source>
        <translation>in progress</translation>
    </message>
    <message>
        <source>__ Дата та час __</source>
        <translation>__ Date and time __</translation>
    </message>
</context>
<context>
    <name>OpenShifts</name>
    <message>
        <source>Відкриті зміни</source>
        <translation>Open shifts</translation>
    </message>
    <message>
        <source>магазин</source>
        <translation>shop</translation>
    </message>
    <message>
        <source>каса</source>
        <translation>cash register</translation>
    </message>
    <message>
        <source>зміна</source>
        <translation>shift</translation>
    </message>
    <message>
        <source>№</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>продаж</source>
        <translation>sale</translation>
    </message>
    <message>
        <source>Оборот за вирахуванням знижок</source>
        <translation>Turnover without discounts</translation>
    </message>
    <message>
        <source>чеків</source>
        <translation>receipts</translation>
    </message>
    <message>
        <source>має бути в касі</source>
        <translation>due in the drawer</translation>
    </message>
    <message>
        <source>Перенесено + готівкою − повернуто + внесено − видано</source>
        <translation>Carried over + cash − returned + brought in − issued</translation>
    </message>
    <message>
        <source>відкрита з</source>
        <translation>open since</translation>
    </message>
    <message>
        <source>Час першого чека зміни</source>
        <translation>Time of the shift&apos;s first receipt</translation>
    </message>
    <message>
        <source>хто відкрив</source>
        <translation>opened by</translation>
    </message>
    <message>
        <source>останній чек</source>
        <translation>last receipt</translation>
    </message>
    <message>
        <source>перенесено</source>
        <translation>carried over</translation>
    </message>
    <message>
        <source>Готівка, яку попередня зміна за своїми сумами лишила в касі</source>
        <translation>Cash that the shift before has left in the drawer by its sums</translation>
    </message>
    <message>
        <source>готівкою</source>
        <translation>cash</translation>
    </message>
    <message>
        <source>повернуто готівкою</source>
        <translation>returned in cash</translation>
    </message>
    <message>
        <source>внесено</source>
        <translation>brought in</translation>
    </message>
    <message>
        <source>Службові внесення за чеками зміни</source>
        <translation>Service cash brought in by the shift&apos;s receipts</translation>
    </message>
    <message>
        <source>видано</source>
        <translation>issued</translation>
    </message>
    <message>
        <source>Службові видачі за чеками зміни</source>
        <translation>Service cash taken out by the shift&apos;s receipts</translation>
    </message>
    <message>
        <source>попередня №</source>
        <translation>before: No.</translation>
    </message>
    <message>
        <source>Зміна перед відкритою; де жодна не відкрита – остання закрита</source>
        <translation>The shift before the open one; where none is open, the last closed one</translation>
    </message>
    <message>
        <source>закрита</source>
        <translation>closed</translation>
    </message>
    <message>
        <source>її продаж</source>
        <translation>its sales</translation>
    </message>
    <message>
        <source>її готівка</source>
        <translation>its cash</translation>
    </message>
    <message>
        <source>Готівкою − повернуто + внесено: стільки зібралося за всю зміну</source>
        <translation>Cash − returned + brought in: so much came together in the whole shift</translation>
    </message>
    <message>
        <source>вилучено</source>
        <translation>taken out</translation>
    </message>
    <message>
        <source>За зміну і під час її закриття</source>
        <translation>During the shift and at its closing</translation>
    </message>
    <message>
        <source>пораховано</source>
        <translation>counted</translation>
    </message>
    <message>
        <source>Відоме, коли під час закриття вилучено всю готівку</source>
        <translation>Known when all cash was taken out at closing</translation>
    </message>
    <message>
        <source>різниця</source>
        <translation>difference</translation>
    </message>
    <message>
        <source>Пораховано мінус готівка зміни</source>
        <translation>Counted less the shift&apos;s cash</translation>
    </message>
    <message>
        <source>лишила</source>
        <translation>left</translation>
    </message>
    <message>
        <source>Готівка зміни мінус вилучене: з цим починається наступна</source>
        <translation>The shift&apos;s cash less what was taken out: the next one begins with it</translation>
    </message>
    <message>
        <source>Тут немає кас, які мають зміни.</source>
        <translation>There are no registers with shifts here.</translation>
    </message>
    <message>
        <source>станом на %1</source>
        <translation>as of %1</translation>
    </message>
    <message>
        <source>Вилучено не всю готівку зміни, а скільки її пораховано, не записується: чи решту лишили в касі, чи її бракує, невідомо.</source>
        <translation>Not all cash of the shift was taken out, and how much was counted is not recorded: whether the rest was left in the drawer or is missing is not known.</translation>
    </message>
    <message>
        <source>На цій касі ще не закривали змін.</source>
        <translation>No shift was closed at this register yet.</translation>
    </message>
    <message>
        <source>У зміні ще немає чеків.</source>
        <translation>The shift has no receipts yet.</translation>
    </message>
    <message>
        <source>На цій касі немає відкритої зміни.</source>
        <translation>This register has no open shift.</translation>
    </message>
    <message>
        <source>Відкритих змін: %1, кас: %2</source>
        <translation>Open shifts: %1, registers: %2</translation>
    </message>
    <message>
        <source>продаж: %1</source>
        <translation>sales: %1</translation>
    </message>
    <message>
        <source>має бути в касах: %1</source>
        <translation>due in the drawers: %1</translation>
    </message>
    <message>
        <source>⚠ понад добу</source>
        <translation>⚠ over a day</translation>
    </message>
    <message>
        <source>відкрита</source>
        <translation>open</translation>
    </message>
</context>
<context>
    <name>OptionalDateEdit</name>
    <message>
        <source>дд.мм.рррр</source>
        <translation>dd.mm.yyyy</translation>
    </message>
    <message>
        <source>«%1» не є датою. Введіть її так: 15.03.1990, або залиште поле порожнім.</source>
        <translation>&quot;%1&quot; is no date. Enter it as 15.03.1990, or leave the field empty.</translation>
    </message>
</context>
<context>
    <name>OverviewModel</name>
    <message>
        <source>Магазин, каса</source>
        <translation>Shop, register</translation>
    </message>
    <message>
        <source>Зв&apos;язок</source>
        <translation>Connection</translation>
    </message>
    <message>
        <source>Чи каса на зв&apos;язку і відколи</source>
        <translation>Whether the register is on line, and since when</translation>
    </message>
    <message>
        <source>Оборот зміни</source>
        <translation>Shift turnover</translation>
    </message>
    <message>
        <source>Продано у відкритих змінах, за відрахуванням знижок</source>
        <translation>Sold in the open shifts, discounts taken off</translation>
    </message>
    <message>
        <source>Тиждень тому</source>
        <translation>A week ago</translation>
    </message>
    <message>
        <source>Оборот усіх змін, закритих того ж дня тижня тиждень тому, за весь день</source>
        <translation>Turnover of all shifts closed on the same weekday a week ago, the whole day</translation>
    </message>
    <message>
        <source>Чеків</source>
        <translation>Receipts</translation>
    </message>
    <message>
        <source>Чеків продажу у відкритих змінах</source>
        <translation>Sales receipts of the open shifts</translation>
    </message>
    <message>
        <source>Середній чек</source>
        <translation>Average receipt</translation>
    </message>
    <message>
        <source>Оборот відкритих змін на один чек</source>
        <translation>Turnover of the open shifts for one receipt</translation>
    </message>
    <message>
        <source>Останній чек</source>
        <translation>Last receipt</translation>
    </message>
    <message>
        <source>Коли востаннє продано або повернуто</source>
        <translation>When something was sold or taken back last</translation>
    </message>
    <message>
        <source>Відкрита зміна</source>
        <translation>Open shift</translation>
    </message>
    <message>
        <source>Відколи відкрита зміна і хто в ній продає</source>
        <translation>Since when the shift is open and who sells in it</translation>
    </message>
    <message>
        <source>Закрито сьогодні</source>
        <translation>Closed today</translation>
    </message>
    <message>
        <source>Оборот змін, які сьогодні вже закрито</source>
        <translation>Turnover of the shifts that were closed today</translation>
    </message>
    <message>
        <source>кас немає</source>
        <translation>no registers</translation>
    </message>
    <message>
        <source>%1 з %2 на зв&apos;язку</source>
        <translation>%1 of %2 on line</translation>
    </message>
    <message>
        <source>каса іншого магазину</source>
        <translation>register of another shop</translation>
    </message>
    <message>
        <source>заблокована</source>
        <translation>blocked</translation>
    </message>
    <message>
        <source>невідомо</source>
        <translation>unknown</translation>
    </message>
    <message>
        <source>на зв&apos;язку з %1</source>
        <translation>on line since %1</translation>
    </message>
    <message>
        <source>без зв&apos;язку з %1</source>
        <translation>off line since %1</translation>
    </message>
    <message>
        <source>відкритих: %1</source>
        <translation>open: %1</translation>
    </message>
    <message>
        <source>відкрита</source>
        <translation>open</translation>
    </message>
    <message>
        <source>з %1</source>
        <translation>since %1</translation>
    </message>
    <message>
        <source>після %1</source>
        <translation>after %1</translation>
    </message>
    <message>
        <source>Enter або подвійне клацання показує, з чого це складається</source>
        <translation>Enter or a double click shows what it is made of</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>Продаж</source>
        <translation>Sale</translation>
    </message>
    <message>
        <source>Автодозвін</source>
        <translation>Auto-dial</translation>
    </message>
    <message>
        <source>Імпорт клієнтів</source>
        <translation>Import of clients</translation>
    </message>
    <message>
        <source>Команди</source>
        <translation>Commands</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>У вас немає доступу до вкладки &quot;%1&quot;.</source>
        <translation>You have no access to the tab &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Магазини</source>
        <translation>Shops</translation>
    </message>
    <message>
        <source>Обладнання</source>
        <translation>Equipment</translation>
    </message>
    <message>
        <source>Пристрої</source>
        <translation>Devices</translation>
    </message>
    <message>
        <source>Групи магазинів</source>
        <translation>Shop groups</translation>
    </message>
    <message>
        <source>Товари</source>
        <translation>Goods</translation>
    </message>
    <message>
        <source>Групи товарів</source>
        <translation>Goods groups</translation>
    </message>
    <message>
        <source>Товари магазинів</source>
        <translation>Goods in shops</translation>
    </message>
    <message>
        <source>Клієнти</source>
        <translation>Clients</translation>
    </message>
    <message>
        <source>Знижки</source>
        <translation>Discounts</translation>
    </message>
    <message>
        <source>Акції</source>
        <translation>Promotions</translation>
    </message>
    <message>
        <source>Транзакції</source>
        <translation>Transactions</translation>
    </message>
    <message>
        <source>Типи транзакцій</source>
        <translation>Transaction types</translation>
    </message>
    <message>
        <source>Зміни</source>
        <translation>Shifts</translation>
    </message>
    <message>
        <source>Службові операції</source>
        <translation>Service operations</translation>
    </message>
    <message>
        <source>Дні оновлення</source>
        <translation>Update days</translation>
    </message>
    <message>
        <source>Податкові групи</source>
        <translation>Tax groups</translation>
    </message>
    <message>
        <source>Чеки</source>
        <translation>Receipts</translation>
    </message>
    <message>
        <source>Z - Звіти</source>
        <translation>Z-reports</translation>
    </message>
    <message>
        <source>Звіт по товарах</source>
        <translation>Goods report</translation>
    </message>
    <message>
        <source>Статистика OnLine</source>
        <translation>On-line statistics</translation>
    </message>
    <message>
        <source>Передачі</source>
        <translation>Transfers</translation>
    </message>
    <message>
        <source>Управління акціями</source>
        <translation>Promotions management</translation>
    </message>
    <message>
        <source>Користувачі</source>
        <translation>Users</translation>
    </message>
    <message>
        <source>Групи прав</source>
        <translation>Permission groups</translation>
    </message>
    <message>
        <source>Управління товарами</source>
        <translation>Goods management</translation>
    </message>
    <message>
        <source>Фінанси</source>
        <translation>Finance</translation>
    </message>
    <message>
        <source>Огляд</source>
        <translation>Overview</translation>
    </message>
    <message>
        <source>Перевірка даних</source>
        <translation>Check of the data</translation>
    </message>
</context>
<context>
    <name>PageBar</name>
    <message>
        <source>Всі записи</source>
        <translation>All records</translation>
    </message>
    <message>
        <source>Завантажити</source>
        <translation>Load</translation>
    </message>
    <message>
        <source>попередня</source>
        <translation>previous</translation>
    </message>
    <message>
        <source>наступна</source>
        <translation>next</translation>
    </message>
    <message>
        <source>сторінка %1</source>
        <translation>page %1</translation>
    </message>
    <message>
        <source>Р&amp;ядків на сторінці:</source>
        <translation>Ro&amp;ws on a page:</translation>
    </message>
</context>
<context>
    <name>PastedBarcodes</name>
    <message>
        <source>Лише зі списку: %1</source>
        <translation>Only of the list: %1</translation>
    </message>
    <message>
        <source>(рядків без штрихкоду: %1)</source>
        <translation>(lines without a barcode: %1)</translation>
    </message>
    <message>
        <source>У списку штрихкодів немає жодного штрихкоду. Виправте список або очистіть його, якщо потрібні всі товари.</source>
        <translation>There is no barcode in the list of barcodes. Correct the list, or clear it if you want all goods.</translation>
    </message>
    <message>
        <source>Невідомі штрихкоди: %1 (%2).</source>
        <translation>Unknown barcodes: %1 (%2).</translation>
    </message>
</context>
<context>
    <name>PastedTable</name>
    <message>
        <source>немає кількості</source>
        <translation>no quantity</translation>
    </message>
    <message>
        <source>«%1» не є кількістю</source>
        <translation>“%1” is no quantity</translation>
    </message>
    <message>
        <source>кількість нуль</source>
        <translation>quantity zero</translation>
    </message>
    <message>
        <source>кількість менша за нуль</source>
        <translation>quantity below zero</translation>
    </message>
    <message>
        <source>кількість завелика</source>
        <translation>quantity too large</translation>
    </message>
    <message>
        <source>колонок більше ніж дві: потрібні штрихкод і кількість</source>
        <translation>more than two columns: barcode and quantity are wanted</translation>
    </message>
    <message>
        <source>товар заблоковано</source>
        <translation>the item is blocked</translation>
    </message>
    <message>
        <source>товар службової групи</source>
        <translation>an item of a service group</translation>
    </message>
    <message>
        <source>за правилами товару його не приймають</source>
        <translation>by its rules the item is not received</translation>
    </message>
    <message>
        <source>за правилами товару його не переміщують</source>
        <translation>by its rules the item is not moved</translation>
    </message>
    <message>
        <source>у магазині немає цього товару</source>
        <translation>the shop does not have this item</translation>
    </message>
    <message>
        <source>неоднозначний: без нулів на початку так само виглядає «%1»</source>
        <translation>ambiguous: without leading zeros “%1” looks the same</translation>
    </message>
    <message>
        <source>невідомий штрихкод</source>
        <translation>unknown barcode</translation>
    </message>
    <message>
        <source>штучний товар: кількість має бути цілою</source>
        <translation>sold by the piece: the quantity must be whole</translation>
    </message>
    <message>
        <source>разом із попередніми рядками кількість завелика</source>
        <translation>too large together with the lines before</translation>
    </message>
    <message>
        <source>ще раз, разом %1</source>
        <translation>once more, %1 together</translation>
    </message>
    <message>
        <source>додається %1</source>
        <translation>%1 is added</translation>
    </message>
    <message>
        <source>штрихкод %1</source>
        <translation>barcode %1</translation>
    </message>
    <message>
        <source>немає штрихкоду</source>
        <translation>no barcode</translation>
    </message>
    <message>
        <source>таблиця зіпсувала штрихкод: задайте стовпцю формат «Текст» і скопіюйте ще раз</source>
        <translation>the spreadsheet has spoiled the barcode: set the column&apos;s format to “Text” and copy again</translation>
    </message>
    <message>
        <source>у штрихкоді більше ніж %1 цифр</source>
        <translation>the barcode has more than %1 digits</translation>
    </message>
    <message>
        <source>У таблиці більше ніж %1 рядків. Вставте її частинами.</source>
        <translation>The table has more than %1 lines. Paste it in parts.</translation>
    </message>
    <message>
        <source>Сервер не відповів. Перевірте таблицю ще раз.</source>
        <translation>The server did not answer. Check the table again.</translation>
    </message>
</context>
<context>
    <name>PeriodModel</name>
    <message>
        <source>«%1»: за програмою %2, є %3</source>
        <translation>“%1”: %2 by the program, %3 counted</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Штрихкод</source>
        <translation>Barcode</translation>
    </message>
    <message>
        <source>Назва</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>За програмою</source>
        <translation>By the program</translation>
    </message>
    <message>
        <source>Пораховано</source>
        <translation>Counted</translation>
    </message>
    <message>
        <source>Різниця</source>
        <translation>Difference</translation>
    </message>
    <message>
        <source>Продано</source>
        <translation>Sold</translation>
    </message>
    <message>
        <source>На складі</source>
        <translation>In store</translation>
    </message>
</context>
<context>
    <name>PeriodReader</name>
    <message>
        <source>%1, каса «%2», документ № %3</source>
        <translation>%1, register “%2”, document No. %3</translation>
    </message>
</context>
<context>
    <name>PeriodWriter</name>
    <message>
        <source>«%1»: було %2, тепер %3</source>
        <translation>“%1”: was %2, is %3 now</translation>
    </message>
    <message>
        <source>… і ще %1</source>
        <translation>… and %1 more</translation>
    </message>
    <message>
        <source>Період уже закрито: документ № %1. Нічого не записано.</source>
        <translation>The period is closed already: document No. %1. Nothing was written.</translation>
    </message>
    <message>
        <source>Поки ви рахували, залишки змінилися. Нічого не записано. Перевірте пораховане і закрийте період ще раз.</source>
        <translation>While you counted the stock has changed. Nothing was written. Check what you counted and close the period again.</translation>
    </message>
    <message>
        <source>З даним магазином працює інший користувач.
Зачекайте або зв&apos;яжіться з пітримкою.</source>
        <translation>Another user is working with this shop.
Wait or contact support.</translation>
    </message>
    <message>
        <source>Поки ви рахували, на касі закрили або відкрили зміну. Нічого не записано. Закрийте це вікно і почніть ще раз.</source>
        <translation>While you counted somebody closed or opened a shift at the register. Nothing was written. Close this window and begin again.</translation>
    </message>
    <message>
        <source>На касі зараз записує інша програма. Період не закрито. Закрийте його ще раз.</source>
        <translation>Another program is writing at the register now. The period was not closed. Close it again.</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався під час запису, і невідомо, чи період закрито. Зачекайте, доки зв&apos;язок відновиться, і повторіть: програма спершу запитає сервер.</source>
        <translation>The connection broke during writing, and it is not known whether the period was closed. Wait until it is back and try again: the program asks the server first.</translation>
    </message>
    <message>
        <source>Період не закрито. Закрийте його ще раз.</source>
        <translation>The period was not closed. Close it again.</translation>
    </message>
</context>
<context>
    <name>Permissions</name>
    <message>
        <source>Вхід</source>
        <translation>Entry</translation>
    </message>
    <message>
        <source>Вхід до бек-офісу</source>
        <translation>Entry to the back office</translation>
    </message>
    <message>
        <source>Управління</source>
        <translation>Management</translation>
    </message>
    <message>
        <source>Продаж, прийом, переміщення</source>
        <translation>Sale, receiving, moving</translation>
    </message>
    <message>
        <source>Управління товарами</source>
        <translation>Goods management</translation>
    </message>
    <message>
        <source>Фінанси</source>
        <translation>Finance</translation>
    </message>
    <message>
        <source>Управління акціями</source>
        <translation>Promotions management</translation>
    </message>
    <message>
        <source>Таблиці</source>
        <translation>Tables</translation>
    </message>
    <message>
        <source>Магазини</source>
        <translation>Shops</translation>
    </message>
    <message>
        <source>Обладнання</source>
        <translation>Equipment</translation>
    </message>
    <message>
        <source>Пристрої</source>
        <translation>Devices</translation>
    </message>
    <message>
        <source>Групи магазинів</source>
        <translation>Shop groups</translation>
    </message>
    <message>
        <source>Товари</source>
        <translation>Goods</translation>
    </message>
    <message>
        <source>Групи товарів</source>
        <translation>Goods groups</translation>
    </message>
    <message>
        <source>Товари магазинів</source>
        <translation>Goods of shops</translation>
    </message>
    <message>
        <source>Клієнти</source>
        <translation>Clients</translation>
    </message>
    <message>
        <source>Знижки</source>
        <translation>Discounts</translation>
    </message>
    <message>
        <source>Акції</source>
        <translation>Promotions</translation>
    </message>
    <message>
        <source>Транзакції</source>
        <translation>Transactions</translation>
    </message>
    <message>
        <source>Типи транзакцій</source>
        <translation>Kinds of transactions</translation>
    </message>
    <message>
        <source>Зміни</source>
        <translation>Shifts</translation>
    </message>
    <message>
        <source>Службові операції</source>
        <translation>Service operations</translation>
    </message>
    <message>
        <source>Дні оновлення</source>
        <translation>Update days</translation>
    </message>
    <message>
        <source>Податкові групи</source>
        <translation>Tax groups</translation>
    </message>
    <message>
        <source>Звіти</source>
        <translation>Reports</translation>
    </message>
    <message>
        <source>Чеки</source>
        <translation>Receipts</translation>
    </message>
    <message>
        <source>Z-звіти</source>
        <translation>Z-reports</translation>
    </message>
    <message>
        <source>Артикульний звіт</source>
        <translation>Article report</translation>
    </message>
    <message>
        <source>Статистика онлайн</source>
        <translation>Statistics on line</translation>
    </message>
    <message>
        <source>Обмін</source>
        <translation>Exchange</translation>
    </message>
    <message>
        <source>Автодозвін</source>
        <translation>Auto dial</translation>
    </message>
    <message>
        <source>Імпорт клієнтів</source>
        <translation>Import of clients</translation>
    </message>
    <message>
        <source>Команди</source>
        <translation>Commands</translation>
    </message>
    <message>
        <source>Експорт та імпорт</source>
        <translation>Export and import</translation>
    </message>
    <message>
        <source>Експорт списків</source>
        <translation>Export of lists</translation>
    </message>
    <message>
        <source>Імпорт списків</source>
        <translation>Import of lists</translation>
    </message>
    <message>
        <source>Користувачі</source>
        <translation>Users</translation>
    </message>
    <message>
        <source>Групи прав</source>
        <translation>Permission groups</translation>
    </message>
    <message>
        <source>Сервіс</source>
        <translation>Service</translation>
    </message>
    <message>
        <source>Імпорт з попередньої версії</source>
        <translation>Import from the previous version</translation>
    </message>
    <message>
        <source>Інші програми: право №%1</source>
        <translation>Other programs: right No. %1</translation>
    </message>
    <message>
        <source>Заборона</source>
        <translation>Denied</translation>
    </message>
    <message>
        <source>Повний дозвіл</source>
        <translation>Full</translation>
    </message>
    <message>
        <source>Тільки перегляд</source>
        <translation>View only</translation>
    </message>
    <message>
        <source>Налаштування, таблиці бази, прискорення і перевірка</source>
        <translation>Settings, tables of the database, its speeding up and check</translation>
    </message>
</context>
<context>
    <name>PlaceBar</name>
    <message>
        <source>Ма&amp;газин:</source>
        <translation>&amp;Shop:</translation>
    </message>
    <message>
        <source>Каса:</source>
        <translation>Register:</translation>
    </message>
    <message>
        <source>Дата:</source>
        <translation>Date:</translation>
    </message>
    <message>
        <source>Пріоритет &amp;ціни:</source>
        <translation>Pri&amp;ce priority:</translation>
    </message>
    <message>
        <source>Дата чека не сьогоднішня.</source>
        <translation>The date of the receipt is not today&apos;s.</translation>
    </message>
</context>
<context>
    <name>PlaceSelector</name>
    <message>
        <source>&amp;Група</source>
        <translation>&amp;Group</translation>
    </message>
    <message>
        <source>&amp;Магазин</source>
        <translation>&amp;Shop</translation>
    </message>
    <message>
        <source>Усі групи</source>
        <translation>All groups</translation>
    </message>
    <message>
        <source>Усі магазини</source>
        <translation>All shops</translation>
    </message>
    <message>
        <source>Усі каси</source>
        <translation>All cash registers</translation>
    </message>
    <message>
        <source>усі магазини</source>
        <translation>all shops</translation>
    </message>
    <message>
        <source>Каса</source>
        <translation>Register</translation>
    </message>
</context>
<context>
    <name>PreviousData</name>
    <message>
        <source>посилання на запис, якого немає</source>
        <translation>refers to a record that does not exist</translation>
    </message>
    <message>
        <source>значення обрізано</source>
        <translation>the value was cut off</translation>
    </message>
    <message>
        <source>число не вміщується, записано найближче</source>
        <translation>the number does not fit, the nearest one was stored</translation>
    </message>
    <message>
        <source>порожнє значення замінено на нульове</source>
        <translation>an empty value was replaced by zero</translation>
    </message>
    <message>
        <source>Зупинено, нічого не додано.</source>
        <translation>Stopped, nothing was added.</translation>
    </message>
    <message>
        <source>Помилка імпорту таблиці</source>
        <translation>Error importing the table</translation>
    </message>
    <message>
        <source>Зміни не записано.</source>
        <translation>The changes were not written.</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався під час запису, і невідомо, чи таблицю скопійовано. Повторіть імпорт: двічі нічого не додається.</source>
        <translation>The connection was lost while writing, and it is not known whether the table was copied. Repeat the import: nothing is added twice.</translation>
    </message>
    <message>
        <source>Немає зв&apos;язку із сервером бази даних.</source>
        <translation>No connection to the database server.</translation>
    </message>
    <message>
        <source>Додано записів: %1.</source>
        <translation>Records added: %1.</translation>
    </message>
    <message>
        <source>Не прийнято записів: %1.</source>
        <translation>Records not accepted: %1.</translation>
    </message>
    <message>
        <source>Не скопійовано: %1.</source>
        <translation>Not copied: %1.</translation>
    </message>
    <message>
        <source>Імпорт таблиць зупинено.</source>
        <translation>Import of tables stopped.</translation>
    </message>
    <message>
        <source>Імпорт таблиць перервано.</source>
        <translation>Import of tables broken off.</translation>
    </message>
    <message>
        <source>Імпорт таблиць завершено.</source>
        <translation>Import of tables finished.</translation>
    </message>
    <message>
        <source>Помилка отримання кількості записів у таблиц</source>
        <translation>Error reading the number of records in the table</translation>
    </message>
    <message>
        <source>Помилка отримання кількості змінених / оновлених записів</source>
        <translation>Error reading the number of changed / updated records</translation>
    </message>
    <message>
        <source>В таблиці</source>
        <translation>In the table</translation>
    </message>
    <message>
        <source> виконано:</source>
        <translation> done:</translation>
    </message>
    <message>
        <source> записів:</source>
        <translation> records:</translation>
    </message>
    <message>
        <source>така назва чи адреса вже є</source>
        <translation>there is such a name or address already</translation>
    </message>
    <message>
        <source>Будова таблиці інша, її стовпці не збігаються.</source>
        <translation>The table is built differently, its columns do not match.</translation>
    </message>
    <message>
        <source>Такої таблиці немає.</source>
        <translation>There is no such table.</translation>
    </message>
    <message>
        <source>Немає права читати чи доповнювати цю таблицю.</source>
        <translation>No right to read or to add to this table.</translation>
    </message>
    <message>
        <source>під тим самим кодом тут інше (%1), і воно дістанеться всьому, що на цей код посилається</source>
        <translation>the same code means something else here (%1), and whatever refers to it gets what is here</translation>
    </message>
    <message>
        <source>Під тими самими кодами тут інше: %1.</source>
        <translation>The same codes mean something else here: %1.</translation>
    </message>
</context>
<context>
    <name>PreviousImport</name>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>У вас немає права імпортувати дані попередньої версії.</source>
        <translation>You have no right to import the previous version&apos;s data.</translation>
    </message>
    <message>
        <source>Імпорт з попередньої версії ще триває.</source>
        <translation>The import from the previous version is still running.</translation>
    </message>
    <message>
        <source>На сервері немає іншої бази: імпортувати немає звідки.</source>
        <translation>There is no other database on the server: there is nothing to import from.</translation>
    </message>
    <message>
        <source>Імпортувати з попередньої версії?</source>
        <translation>Import from the previous version?</translation>
    </message>
    <message>
        <source>З бази «%1» до поточної бази «%2» на сервері %3 буде скопійовано групи, податки, знижки, магазини, обладнання, товари і картки клієнтів.
Записи, які тут уже є, не зміняться; база «%1» лише читається.</source>
        <translation>Groups, taxes, discounts, shops, registers, goods and clients&apos; cards will be copied from the database “%1” into the current database “%2” on the server %3.
Records that are here already will not change; the database “%1” is only read.</translation>
    </message>
    <message>
        <source>&amp;Імпортувати</source>
        <translation>&amp;Import</translation>
    </message>
    <message>
        <source>Імпорт з бази «%1»</source>
        <translation>Import from the database “%1”</translation>
    </message>
    <message>
        <source>Імпорт таблиць завершено</source>
        <translation>Import of tables finished</translation>
    </message>
    <message>
        <source>Імпорт таблиць зупинено</source>
        <translation>Import of tables stopped</translation>
    </message>
    <message>
        <source>Імпорт таблиць перервано</source>
        <translation>Import of tables broken off</translation>
    </message>
</context>
<context>
    <name>PriceList</name>
    <message>
        <source>Штрихкод &lt;&gt; 13 та &lt;&gt; 8</source>
        <translation>Barcode &lt;&gt; 13 and &lt;&gt; 8</translation>
    </message>
    <message>
        <source>його немає</source>
        <translation>there is none</translation>
    </message>
    <message>
        <source>знаків у ньому %1</source>
        <translation>it has %1 characters</translation>
    </message>
    <message>
        <source>Помилка контрольної суми в штрихкоді</source>
        <translation>Wrong check digit in the barcode</translation>
    </message>
    <message>
        <source>у ньому не лише цифри</source>
        <translation>it does not consist of digits alone</translation>
    </message>
    <message>
        <source>ціни немає</source>
        <translation>there is no price</translation>
    </message>
    <message>
        <source>у ціні більше двох знаків після коми: %1</source>
        <translation>the price has more than two decimals: %1</translation>
    </message>
    <message>
        <source>ціна – не число: %1</source>
        <translation>the price is no number: %1</translation>
    </message>
    <message>
        <source>ціна від&apos;ємна</source>
        <translation>the price is negative</translation>
    </message>
    <message>
        <source>ціна більша за %1</source>
        <translation>the price is higher than %1</translation>
    </message>
    <message>
        <source>Невірна кількість колонок</source>
        <translation>Wrong number of columns</translation>
    </message>
    <message>
        <source>нульова ціна не записується</source>
        <translation>a zero price is not written</translation>
    </message>
    <message>
        <source>новий товар, ціна %1</source>
        <translation>new item, price %1</translation>
    </message>
    <message>
        <source>ціна та сама</source>
        <translation>the same price</translation>
    </message>
    <message>
        <source>ціна %1 → %2</source>
        <translation>price %1 → %2</translation>
    </message>
    <message>
        <source>новий товар без назви</source>
        <translation>new item without a name</translation>
    </message>
    <message>
        <source>у назві літери, яких немає у вибраному кодуванні</source>
        <translation>the name has letters that the chosen encoding does not have</translation>
    </message>
    <message>
        <source>назва довша за %1 знаків</source>
        <translation>the name is longer than %1 characters</translation>
    </message>
    <message>
        <source>У файлі немає записів.</source>
        <translation>The file has no records.</translation>
    </message>
    <message>
        <source>новий товар має дістати тип 1, групу товарів 1 і податкову групу 5, а їх у базі немає</source>
        <translation>a new item gets type 1, goods group 1 and tax group 5, which the database does not have</translation>
    </message>
    <message>
        <source>У файлі більше записів, ніж можна імпортувати за раз: %1. Розділіть його на менші.</source>
        <translation>The file has more records than can be imported at once: %1. Split it into smaller ones.</translation>
    </message>
    <message>
        <source>Невідомо, чи записано імпорт: сервер не відповів. Коли зв&apos;язок відновиться, імпортуйте файл ще раз: записане вдруге не зміниться.</source>
        <translation>It is not known whether the import was written: the server did not answer. Import the file again when the connection is back: what is written does not change a second time.</translation>
    </message>
    <message>
        <source>Імпорт зупинено, у базу нічого не записано.</source>
        <translation>The import was stopped, nothing was written into the database.</translation>
    </message>
    <message>
        <source>Імпорт не вдався, у базу нічого не записано.</source>
        <translation>The import has failed, nothing was written into the database.</translation>
    </message>
    <message>
        <source>цей штрихкод щойно вилучено з бази</source>
        <translation>this barcode has just been removed from the database</translation>
    </message>
    <message>
        <source>Товарів оновлено:</source>
        <translation>Goods updated:</translation>
    </message>
    <message>
        <source>, з них ціна та сама: %1</source>
        <translation>, the same price: %1</translation>
    </message>
    <message>
        <source>Товарів нових:</source>
        <translation>New goods:</translation>
    </message>
    <message>
        <source>Помилкових штрихкодів:</source>
        <translation>Wrong barcodes:</translation>
    </message>
    <message>
        <source>Записів з невірною кількістю колонок:</source>
        <translation>Records with a wrong number of columns:</translation>
    </message>
    <message>
        <source>Записів з нульовою ціною:</source>
        <translation>Records with a zero price:</translation>
    </message>
    <message>
        <source>Записів з помилковою ціною:</source>
        <translation>Records with a wrong price:</translation>
    </message>
    <message>
        <source>Записів з помилковою назвою:</source>
        <translation>Records with a wrong name:</translation>
    </message>
    <message>
        <source>Цін, які тим часом змінили інші (записано ціну з файла):</source>
        <translation>Prices that others have changed meanwhile (that of the file was written):</translation>
    </message>
    <message>
        <source>Нових штрихкодів, які тим часом додали інші (їх товару записано ціну з файла):</source>
        <translation>New barcodes that others have added meanwhile (their item got the price of the file):</translation>
    </message>
    <message>
        <source>Штрихкодів, які тим часом вилучили інші (пропущено):</source>
        <translation>Barcodes that others have removed meanwhile (left out):</translation>
    </message>
    <message>
        <source>Товар (невідомий) не знайдено. Невірна кількість колонок</source>
        <translation>Item (unknown) not found. Wrong number of columns</translation>
    </message>
    <message>
        <source>Читання, КБ</source>
        <translation>Reading, KB</translation>
    </message>
    <message>
        <source>Перевірка, тис. знаків</source>
        <translation>Checking, thousand characters</translation>
    </message>
    <message>
        <source>Звірка з базою</source>
        <translation>Comparing with the database</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
</context>
<context>
    <name>PriceOrder</name>
    <message>
        <source>№ %1</source>
        <translation>No. %1</translation>
    </message>
    <message>
        <source>Усі магазини, група %1</source>
        <translation>All shops, group %1</translation>
    </message>
    <message>
        <source>Група %1</source>
        <translation>Group %1</translation>
    </message>
    <message>
        <source>Магазин № %1, якого немає</source>
        <translation>Shop No. %1, which is gone</translation>
    </message>
    <message>
        <source>Магазин «%1»</source>
        <translation>Shop “%1”</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>не для цього магазину: інший магазин</source>
        <translation>not for this shop: another shop</translation>
    </message>
    <message>
        <source>не для цього магазину: інша група</source>
        <translation>not for this shop: another group</translation>
    </message>
    <message>
        <source>інший пріоритет: діє лише 0</source>
        <translation>another priority: only 0 counts</translation>
    </message>
    <message>
        <source>інший пріоритет: діють 0 і %1</source>
        <translation>another priority: 0 and %1 count</translation>
    </message>
    <message>
        <source>поступається: пріоритет 0 сильніший за будь-який інший</source>
        <translation>gives way: priority 0 is stronger than any other</translation>
    </message>
    <message>
        <source>поступається: з кількох рядків магазину діє рядок групи з меншим номером</source>
        <translation>gives way: of several rows of a shop the one of the group with the lowest number counts</translation>
    </message>
    <message>
        <source>поступається: ціна магазину сильніша за ціну групи</source>
        <translation>gives way: the price of the shop is stronger than that of a group</translation>
    </message>
    <message>
        <source>поступається: ціна своєї групи сильніша за ціну всіх магазинів</source>
        <translation>gives way: the price of its own group is stronger than that of all shops</translation>
    </message>
    <message>
        <source>діє</source>
        <translation>in force</translation>
    </message>
    <message>
        <source>Ціна самого товару</source>
        <translation>Price of the item itself</translation>
    </message>
    <message>
        <source>поступається: є ціна для цього магазину</source>
        <translation>gives way: there is a price for this shop</translation>
    </message>
    <message>
        <source>діяла б, але її немає</source>
        <translation>would be in force, but there is none</translation>
    </message>
    <message>
        <source>діє: жодна з інших цін сюди не підходить</source>
        <translation>in force: none of the other prices fits here</translation>
    </message>
    <message>
        <source>діє: інших цін у товару немає</source>
        <translation>in force: the item has no other prices</translation>
    </message>
</context>
<context>
    <name>QAcceptInvoice</name>
    <message>
        <source>&amp;Товар:</source>
        <translation>&amp;Goods:</translation>
    </message>
    <message>
        <source>Скануйте; або штрихкод, код чи назва і Enter</source>
        <translation>Scan; or barcode, code or name and Enter</translation>
    </message>
    <message>
        <source>Прийняти &amp;в:</source>
        <translation>Accept &amp;into:</translation>
    </message>
    <message>
        <source>Товари накладної</source>
        <translation>Goods of the invoice</translation>
    </message>
    <message>
        <source>Пові&amp;домлення відправнику:</source>
        <translation>&amp;Message to the sender:</translation>
    </message>
    <message>
        <source>&amp;Усе як надіслано…</source>
        <translation>All as &amp;sent…</translation>
    </message>
    <message>
        <source>При&amp;йняти F9</source>
        <translation>&amp;Accept F9</translation>
    </message>
    <message>
        <source>&amp;Закрити</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Приймання накладної № %1</source>
        <translation>Acceptance of invoice No. %1</translation>
    </message>
    <message>
        <source>З магазину: %1</source>
        <translation>From shop: %1</translation>
    </message>
    <message>
        <source>До магазину: %1</source>
        <translation>To shop: %1</translation>
    </message>
    <message>
        <source>Відправлено: %1</source>
        <translation>Sent: %1</translation>
    </message>
    <message>
        <source>Повідомлення відправника: %1</source>
        <translation>Message of the sender: %1</translation>
    </message>
    <message>
        <source>Товар «%1» не додано: сервер не відповів.</source>
        <translation>Item “%1” was not added: the server did not answer.</translation>
    </message>
    <message>
        <source>Товар «%1» не знайдено.</source>
        <translation>Item “%1” was not found.</translation>
    </message>
    <message>
        <source>За «%1» знайдено кілька товарів: введіть штрихкод або код.</source>
        <translation>Several items were found by “%1”: enter a barcode or a code.</translation>
    </message>
    <message>
        <source>«%1» у накладній немає: додано як надлишок.</source>
        <translation>“%1” is not in the invoice: added as a surplus.</translation>
    </message>
    <message>
        <source>Не пораховано позицій: %1. Записати їх кількість як надіслану, не рахуючи?</source>
        <translation>Lines not counted: %1. Record them as sent without counting?</translation>
    </message>
    <message>
        <source>&amp;Записати як надіслано</source>
        <translation>&amp;Record as sent</translation>
    </message>
    <message>
        <source>&amp;Рахувати далі</source>
        <translation>&amp;Go on counting</translation>
    </message>
    <message>
        <source>Товар ще шукається. Прийміть накладну ще раз.</source>
        <translation>An item is still being looked for. Accept the invoice again.</translation>
    </message>
    <message>
        <source>Прийняти з різницею? Потім змінити пораховане вже не можна.</source>
        <translation>Accept with differences? What was counted cannot be changed afterwards.</translation>
    </message>
    <message>
        <source>&amp;Прийняти з різницею</source>
        <translation>&amp;Accept with differences</translation>
    </message>
    <message>
        <source>Поки ви відповідали, щось іще скановано: перевірте і прийміть ще раз.</source>
        <translation>While you were answering something else was scanned: check it and accept again.</translation>
    </message>
    <message>
        <source>Невідомо, чи накладну прийнято: зв&apos;язок обірвався.</source>
        <translation>It is not known whether the invoice was accepted: the connection broke.</translation>
    </message>
    <message>
        <source>Пораховане ще не записано.</source>
        <translation>What was counted is not saved yet.</translation>
    </message>
    <message>
        <source>&amp;Закрити без збереження</source>
        <translation>&amp;Close without saving</translation>
    </message>
</context>
<context>
    <name>QAddEdtActions</name>
    <message>
        <source>Код акції</source>
        <translation>Promotion code</translation>
    </message>
    <message>
        <source>Назва акції</source>
        <translation>Promotion name</translation>
    </message>
    <message>
        <source>Тип акції</source>
        <translation>Promotion type</translation>
    </message>
    <message>
        <source>Знижка, %</source>
        <translation>Discount, %</translation>
    </message>
    <message>
        <source>Значення 1</source>
        <translation>Value 1</translation>
    </message>
    <message>
        <source>Значення 2</source>
        <translation>Value 2</translation>
    </message>
    <message>
        <source>Обмежити датами і годинами</source>
        <translation>Limit to dates and hours</translation>
    </message>
    <message>
        <source>Перший день</source>
        <translation>First day</translation>
    </message>
    <message>
        <source>Останній день</source>
        <translation>Last day</translation>
    </message>
    <message>
        <source>Дні тижня</source>
        <translation>Days of the week</translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>щодня з</source>
        <translation>daily from</translation>
    </message>
    <message>
        <source>щодня до</source>
        <translation>daily to</translation>
    </message>
    <message>
        <source>Жодному товару не призначена.</source>
        <translation>No goods have it.</translation>
    </message>
    <message>
        <source>Призначена: %1.</source>
        <translation>Assigned: %1.</translation>
    </message>
    <message>
        <source>Значення</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Стан: %1. %2, %3, %4.</source>
        <translation>State: %1. %2, %3, %4.</translation>
    </message>
    <message>
        <source>Не діятиме ніколи: %1</source>
        <translation>It will never be in force: %1</translation>
    </message>
    <message>
        <source>Введіть назву акції.</source>
        <translation>Enter the name of the promotion.</translation>
    </message>
    <message>
        <source>Виберіть тип акції.</source>
        <translation>Choose the type of the promotion.</translation>
    </message>
    <message>
        <source>Акція закінчується раніше, ніж починається. Виправте дати.</source>
        <translation>The promotion ends before it begins. Correct the dates.</translation>
    </message>
    <message>
        <source>Години «з» пізніші за години «до». Каси порівнюють години в межах одного дня, тому акція через північ (наприклад, з 22:00 до 06:00) неможлива. Введіть проміжок до 23:59:59.</source>
        <translation>The hour “from” is later than the hour “to”. The registers compare hours within one day, so a promotion over midnight (say from 22:00 to 06:00) is not possible. Enter a span up to 23:59:59.</translation>
    </message>
    <message>
        <source>Назва акції повинна бути унікальною</source>
        <translation>The name of a promotion must be unique</translation>
    </message>
    <message>
        <source>Акція не діятиме ніколи: %1</source>
        <translation>The promotion will never be in force: %1</translation>
    </message>
    <message>
        <source>Акція вже закінчилася і не діятиме.</source>
        <translation>The promotion has ended already and will not be in force.</translation>
    </message>
    <message>
        <source>Акцію призначено: %1. Ціни цих товарів зміняться одразу після збереження.</source>
        <translation>The promotion is assigned: %1. The prices of these goods change as soon as it is saved.</translation>
    </message>
    <message>
        <source>Зберегти</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Повернутись до редагування</source>
        <translation>Back to editing</translation>
    </message>
</context>
<context>
    <name>QAddEdtCln</name>
    <message>
        <source>Початковий &amp;код картки</source>
        <translation>First card &amp;code</translation>
    </message>
    <message>
        <source>Кількість к&amp;арток</source>
        <translation>&amp;Number of cards</translation>
    </message>
    <message>
        <source>&amp;Знижка</source>
        <translation>&amp;Discount</translation>
    </message>
    <message>
        <source>Карточка бонунса/на знижку</source>
        <translation>Bonus/discount card</translation>
    </message>
    <message>
        <source>&amp;Фіксована знижка</source>
        <translation>&amp;Fixed discount</translation>
    </message>
    <message>
        <source>&amp;Група</source>
        <translation>&amp;Group</translation>
    </message>
    <message>
        <source>&amp;Блокування</source>
        <translation>&amp;Blocked</translation>
    </message>
    <message>
        <source>&amp;Передача в CashDrive</source>
        <translation>&amp;Sent to CashDrive</translation>
    </message>
    <message>
        <source>&amp;Ім&apos;я</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>&amp;Телефон</source>
        <translation>&amp;Telephone</translation>
    </message>
    <message>
        <source>&amp;E-MAIL</source>
        <translation>&amp;E-MAIL</translation>
    </message>
    <message>
        <source>&amp;Дата народження</source>
        <translation>&amp;Birthday</translation>
    </message>
    <message>
        <source>І&amp;нфо</source>
        <translation>&amp;Info</translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Створити</source>
        <translation>Create</translation>
    </message>
    <message>
        <source>Створення карток клієнтів</source>
        <translation>Creating client cards</translation>
    </message>
    <message>
        <source>Номер картки яка редагується</source>
        <translation>Number of the card being edited</translation>
    </message>
    <message>
        <source>Редагування картки клієнта</source>
        <translation>Editing a client card</translation>
    </message>
    <message>
        <source>Немає жодної не заблокованої знижки, а кожна картка повинна мати знижку. Спершу додайте знижку у вкладці &quot;Знижки&quot;.</source>
        <translation>There is no discount that is not blocked, and every card must have one. First add a discount on the tab &quot;Discounts&quot;.</translation>
    </message>
    <message>
        <source>Цю знижку заблоковано. Картка має її, доки не вибрано іншої.</source>
        <translation>This discount is blocked. The card has it until another one is chosen.</translation>
    </message>
    <message>
        <source>Дата народження</source>
        <translation>Birthday</translation>
    </message>
    <message>
        <source>Поле &quot;кількість карток для створення&quot; не може бути пустим і дорівнювати 0</source>
        <translation>The field &quot;number of cards to create&quot; must not be empty or 0</translation>
    </message>
    <message>
        <source>Введіть початковий код картки, число від 1.</source>
        <translation>Enter the first card code, a number from 1 on.</translation>
    </message>
    <message>
        <source>Виберіть значення в усіх полях: нові картки отримають їх.</source>
        <translation>Choose a value in every field: the new cards will have them.</translation>
    </message>
    <message>
        <source>Створення карток</source>
        <translation>Creating cards</translation>
    </message>
    <message>
        <source>%1 з %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>Буде створено карток: %1, коди %2 – %3.</source>
        <translation>Cards to be created: %1, codes %2 – %3.</translation>
    </message>
    <message>
        <source>Не створювати</source>
        <translation>Do not create</translation>
    </message>
</context>
<context>
    <name>QAddEdtComands</name>
    <message>
        <source>Назва команди</source>
        <translation>Command name</translation>
    </message>
    <message>
        <source>Шлях до програми</source>
        <translation>Path to the program</translation>
    </message>
    <message>
        <source>&amp;Вибрати…</source>
        <translation>&amp;Choose…</translation>
    </message>
    <message>
        <source>Параметри</source>
        <translation>Parameters</translation>
    </message>
    <message>
        <source>Замість [{IP}] стане адреса магазину чи каси. Команда, названа як тип пристрою, запускається для таких пристроїв правою кнопкою миші.</source>
        <translation>[{IP}] is replaced by the address of the shop or register. A command named like a type of device is started for such devices by a right click.</translation>
    </message>
    <message>
        <source>Буде запущено</source>
        <translation>Will be started</translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Відкрити</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Назва не може бути пустою</source>
        <translation>The name must not be empty</translation>
    </message>
    <message>
        <source>Шлях прогамми, не може бути пустим</source>
        <translation>The path of the program must not be empty</translation>
    </message>
    <message>
        <source>Файд прогамми, не знайдено</source>
        <translation>The file of the program was not found</translation>
    </message>
    <message>
        <source>Такий запис вже існує в базі!</source>
        <translation>This record already exists in the database!</translation>
    </message>
</context>
<context>
    <name>QAddEdtDiscount</name>
    <message>
        <source>Код знижки</source>
        <translation>Discount code</translation>
    </message>
    <message>
        <source>Назва знижки</source>
        <translation>Name of the discount</translation>
    </message>
    <message>
        <source>Відсоток знижки</source>
        <translation>Discount, per cent</translation>
    </message>
    <message>
        <source>Сума після якої діє знижка</source>
        <translation>Purchases that lead to the discount</translation>
    </message>
    <message>
        <source>Знижка бере участь
в автоматичному
переході відсотків</source>
        <translation>The discount takes part
in the automatic
change of percentages</translation>
    </message>
    <message>
        <source>Блокувати знижку</source>
        <translation>Block the discount</translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Знижка</source>
        <translation>Discount</translation>
    </message>
    <message>
        <source>Введіть назву знижки, наприклад &quot;Знижка 05.00%&quot;.</source>
        <translation>Enter the name of the discount, such as &quot;Discount 05.00%&quot;.</translation>
    </message>
    <message>
        <source>Назва знижки повинна бути унікальною</source>
        <translation>The name of the discount must be unique</translation>
    </message>
    <message>
        <source>Буде збережено %1: сума має шість цифр.</source>
        <translation>%1 will be stored: the amount has six digits.</translation>
    </message>
</context>
<context>
    <name>QAddEdtGoods</name>
    <message>
        <source>Товар</source>
        <translation>Goods item</translation>
    </message>
    <message>
        <source>&amp;Код:</source>
        <translation>&amp;Code:</translation>
    </message>
    <message>
        <source>&amp;Назва товару:</source>
        <translation>Item &amp;name:</translation>
    </message>
    <message>
        <source>Ко&amp;ротка назва:</source>
        <translation>Shor&amp;t name:</translation>
    </message>
    <message>
        <source>&amp;Ціна:</source>
        <translation>&amp;Price:</translation>
    </message>
    <message>
        <source>&amp;Тип товару:</source>
        <translation>Item t&amp;ype:</translation>
    </message>
    <message>
        <source>&amp;Група:</source>
        <translation>&amp;Group:</translation>
    </message>
    <message>
        <source>&amp;Податкова група:</source>
        <translation>Ta&amp;x group:</translation>
    </message>
    <message>
        <source>Правил&amp;о:</source>
        <translation>R&amp;ule:</translation>
    </message>
    <message>
        <source>Оплата &amp;бонусами:</source>
        <translation>Payment with &amp;bonuses:</translation>
    </message>
    <message>
        <source>&amp;Знижка/Бонус:</source>
        <translation>&amp;Discount/Bonus:</translation>
    </message>
    <message>
        <source>Б&amp;локування:</source>
        <translation>Bloc&amp;ked:</translation>
    </message>
    <message>
        <source>Штри&amp;хкод:</source>
        <translation>Ba&amp;rcode:</translation>
    </message>
    <message>
        <source>13 цифр</source>
        <translation>13 digits</translation>
    </message>
    <message>
        <source>&amp;Додати</source>
        <translation>&amp;Add</translation>
    </message>
    <message>
        <source>Штрихкоди товару</source>
        <translation>Barcodes of the goods item</translation>
    </message>
    <message>
        <source>&amp;Видалити</source>
        <translation>Re&amp;move</translation>
    </message>
    <message>
        <source>Ціни &amp;магазинів:</source>
        <translation>Shop pr&amp;ices:</translation>
    </message>
    <message>
        <source>Додати ц&amp;іну</source>
        <translation>Add pric&amp;e</translation>
    </message>
    <message>
        <source>Видалити цін&amp;у</source>
        <translation>Remo&amp;ve price</translation>
    </message>
    <message>
        <source>Зб&amp;ерегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Скасувати</source>
        <translation>Cance&amp;l</translation>
    </message>
    <message>
        <source>Невідоме значення по замовчуванню для групи магазинів!</source>
        <translation>Unknown default value for the shop group!</translation>
    </message>
    <message>
        <source>Новий штрихкод повинен мати 13 цифр.</source>
        <translation>A new barcode must have 13 digits.</translation>
    </message>
    <message>
        <source>Такий штрихкод вже є у списку.</source>
        <translation>This barcode is already in the list.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Увага.</source>
        <translation>Attention.</translation>
    </message>
    <message>
        <source>Контрольна цифра штрихкоду %1 невірна. Додати його?</source>
        <translation>The check digit of barcode %1 is wrong. Add it?</translation>
    </message>
    <message>
        <source>Лише один товар групи може мати це правило.</source>
        <translation>Only one goods item of a group can have this rule.</translation>
    </message>
    <message>
        <source>Назва товару не може бути пустою</source>
        <translation>The name of the goods item cannot be empty</translation>
    </message>
    <message>
        <source>Товар повинен мати хоча б один штрихкод!</source>
        <translation>A goods item must have at least one barcode!</translation>
    </message>
    <message>
        <source>штрих код повинен місти 8 або 13 цифр</source>
        <translation>a barcode must have 8 or 13 digits</translation>
    </message>
    <message>
        <source>Штрихкод %1 ще не додано до списку: додайте або зітріть його.</source>
        <translation>Barcode %1 is not in the list yet: add or erase it.</translation>
    </message>
    <message>
        <source>Код товару повинен бути від 1 до %1.</source>
        <translation>The code of the goods item must be from 1 to %1.</translation>
    </message>
    <message>
        <source>Продається в м&amp;агазинах:</source>
        <translation>Sold in s&amp;hops:</translation>
    </message>
    <message>
        <source>Ціна </source>
        <translation>Price </translation>
    </message>
    <message>
        <source>Довшою, ніж %1 знаків, коротка назва не буває.</source>
        <translation>A short name is never longer than %1 characters.</translation>
    </message>
</context>
<context>
    <name>QAddEdtKass</name>
    <message>
        <source>&amp;Група:</source>
        <translation>&amp;Group:</translation>
    </message>
    <message>
        <source>&amp;Адреса магазину:</source>
        <translation>Shop &amp;address:</translation>
    </message>
    <message>
        <source>&amp;Шлюз магазину:</source>
        <translation>Shop gate&amp;way:</translation>
    </message>
    <message>
        <source>Не коректна ip адреса шлюзу;</source>
        <translation>Incorrect IP address of the gateway;</translation>
    </message>
    <message>
        <source>&amp;Рекламний рядок:</source>
        <translation>Adve&amp;rtising line:</translation>
    </message>
    <message>
        <source>&amp;Код CashDrive:</source>
        <translation>CashDrive &amp;code:</translation>
    </message>
    <message>
        <source>Редагування ша&amp;пки:</source>
        <translation>&amp;Header editing:</translation>
    </message>
    <message>
        <source>&amp;Блок:</source>
        <translation>&amp;Blocked:</translation>
    </message>
    <message>
        <source>&amp;Інформація блоку:</source>
        <translation>Block &amp;information:</translation>
    </message>
    <message>
        <source>&amp;Тип пристрою:</source>
        <translation>Device &amp;type:</translation>
    </message>
    <message>
        <source>&amp;Марка:</source>
        <translation>Ma&amp;ke:</translation>
    </message>
    <message>
        <source>Мо&amp;дель:</source>
        <translation>&amp;Model:</translation>
    </message>
    <message>
        <source>Серійний &amp;номер:</source>
        <translation>Serial &amp;number:</translation>
    </message>
    <message>
        <source>IP адре&amp;са:</source>
        <translation>I&amp;P address:</translation>
    </message>
    <message>
        <source>990.990.990.990</source>
        <translation>990.990.990.990</translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>Cance&amp;l</translation>
    </message>
    <message>
        <source>Не має доступних груп!</source>
        <translation>No groups available!</translation>
    </message>
    <message>
        <source>інше</source>
        <translation>other</translation>
    </message>
    <message>
        <source>Рекламний рядок ідентифікації каси не може бути порожній!</source>
        <translation>The advertising line that identifies the cash register cannot be empty!</translation>
    </message>
    <message>
        <source>Адреса магазину не може бути порожня!</source>
        <translation>The shop address cannot be empty!</translation>
    </message>
    <message>
        <source>Код CashDrive повинен складатися з трьох цифр або бути порожнім!</source>
        <translation>The CashDrive code must have three digits or be empty!</translation>
    </message>
    <message>
        <source>Рекламний рядок ідентифікації каси повинен бути унікальним в межах одного магазину!</source>
        <translation>The advertising line that identifies the cash register must be unique within one shop!</translation>
    </message>
    <message>
        <source>Код CashDrive повинен бути унікальним!</source>
        <translation>The CashDrive code must be unique!</translation>
    </message>
    <message>
        <source>У цій групі ще немає магазинів з касами: спершу додайте магазин у вкладці &quot;Магазини&quot;.</source>
        <translation>This group has no shops with registers yet: first add a shop in the tab &quot;Shops&quot;.</translation>
    </message>
    <message>
        <source>Це не IP-адреса: потрібні чотири числа від 0 до 255.</source>
        <translation>This is no IP address: four numbers from 0 to 255 are wanted.</translation>
    </message>
</context>
<context>
    <name>QAddEdtShop</name>
    <message>
        <source>&amp;Адреса магазину:</source>
        <translation>Shop &amp;address:</translation>
    </message>
    <message>
        <source>&amp;Назва магазину:</source>
        <translation>Shop &amp;name:</translation>
    </message>
    <message>
        <source>&amp;Група:</source>
        <translation>&amp;Group:</translation>
    </message>
    <message>
        <source>&amp;День оновлення:</source>
        <translation>&amp;Update day:</translation>
    </message>
    <message>
        <source>&amp;Тип магазину:</source>
        <translation>Shop &amp;type:</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Склад</source>
        <translation>Warehouse</translation>
    </message>
    <message>
        <source>Офіс</source>
        <translation>Office</translation>
    </message>
    <message>
        <source>&amp;Цикл днів:</source>
        <translation>&amp;Cycle in days:</translation>
    </message>
    <message>
        <source>&amp;Шлюз:</source>
        <translation>Gate&amp;way:</translation>
    </message>
    <message>
        <source>990.990.990.990</source>
        <translation>990.990.990.990</translation>
    </message>
    <message>
        <source>Не коректна ip адреса шлюзу;</source>
        <translation>Incorrect IP address of the gateway;</translation>
    </message>
    <message>
        <source>&amp;Блок:</source>
        <translation>&amp;Blocked:</translation>
    </message>
    <message>
        <source>&amp;1 рядок заголовка чека:</source>
        <translation>Receipt header line &amp;1:</translation>
    </message>
    <message>
        <source>&amp;2 рядок заголовка чека:</source>
        <translation>Receipt header line &amp;2:</translation>
    </message>
    <message>
        <source>&amp;3 рядок заголовка чека:</source>
        <translation>Receipt header line &amp;3:</translation>
    </message>
    <message>
        <source>&amp;4 рядок заголовка чека:</source>
        <translation>Receipt header line &amp;4:</translation>
    </message>
    <message>
        <source>&amp;Перший рядок низу чека:</source>
        <translation>&amp;First receipt footer line:</translation>
    </message>
    <message>
        <source>Д&amp;ругий рядок низу чека:</source>
        <translation>S&amp;econd receipt footer line:</translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>Cance&amp;l</translation>
    </message>
    <message>
        <source>Адреса магазину не може бути пустою</source>
        <translation>The shop address cannot be empty</translation>
    </message>
    <message>
        <source>Група магазину не може бути пустою</source>
        <translation>The shop group cannot be empty</translation>
    </message>
    <message>
        <source>Адреса магазину вже існує в базі!</source>
        <translation>The shop address already exists in the database!</translation>
    </message>
    <message>
        <source>Шлюз %1 вже має інший магазин!</source>
        <translation>Another shop already has the gateway %1!</translation>
    </message>
    <message>
        <source>не задано</source>
        <translation>not set</translation>
    </message>
</context>
<context>
    <name>QAddEdtSlujbOp</name>
    <message>
        <source>назва</source>
        <translation>name</translation>
    </message>
    <message>
        <source>вид операції</source>
        <translation>kind of operation</translation>
    </message>
    <message>
        <source>&amp;зберегти</source>
        <translation>&amp;save</translation>
    </message>
    <message>
        <source>&amp;відмінити</source>
        <translation>&amp;cancel</translation>
    </message>
    <message>
        <source>внесення</source>
        <translation>cash in</translation>
    </message>
    <message>
        <source>вилучення</source>
        <translation>cash out</translation>
    </message>
    <message>
        <source>Назва не може бути пустою</source>
        <translation>The name must not be empty</translation>
    </message>
    <message>
        <source>Виберіть, що це: внесення чи вилучення.</source>
        <translation>Choose which it is: cash in or cash out.</translation>
    </message>
    <message>
        <source>Такий запис вже існує в базі!</source>
        <translation>This record already exists in the database!</translation>
    </message>
</context>
<context>
    <name>QAddEdtUsers</name>
    <message>
        <source>&amp;Логін:</source>
        <translation>&amp;Login:</translation>
    </message>
    <message>
        <source>&amp;Прізвище:</source>
        <translation>S&amp;urname:</translation>
    </message>
    <message>
        <source>&amp;Ім&apos;я:</source>
        <translation>&amp;First name:</translation>
    </message>
    <message>
        <source>По &amp;батькові:</source>
        <translation>Patrony&amp;mic:</translation>
    </message>
    <message>
        <source>&amp;Телефон:</source>
        <translation>&amp;Telephone:</translation>
    </message>
    <message>
        <source>0441234501</source>
        <translation>0441234501</translation>
    </message>
    <message>
        <source>Па&amp;роль:</source>
        <translation>&amp;Password:</translation>
    </message>
    <message>
        <source>Пароль &amp;ще раз:</source>
        <translation>Password a&amp;gain:</translation>
    </message>
    <message>
        <source>Гр&amp;упа прав:</source>
        <translation>Permission g&amp;roup:</translation>
    </message>
    <message>
        <source>Група &amp;магазинів:</source>
        <translation>Shop gr&amp;oup:</translation>
    </message>
    <message>
        <source>М&amp;агазин:</source>
        <translation>S&amp;hop:</translation>
    </message>
    <message>
        <source>&amp;Ключ картки:</source>
        <translation>Card &amp;key:</translation>
    </message>
    <message>
        <source>Запропо&amp;нувати</source>
        <translation>Sugg&amp;est</translation>
    </message>
    <message>
        <source>Наступний вільний ключ</source>
        <translation>The next free key</translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>приховано</source>
        <translation>hidden</translation>
    </message>
    <message>
        <source>без змін</source>
        <translation>unchanged</translation>
    </message>
    <message>
        <source>Ця група не дає входу: користувач не ввійде.</source>
        <translation>This group gives no entry: the user will not get in.</translation>
    </message>
    <message>
        <source>без магазину</source>
        <translation>no shop</translation>
    </message>
    <message>
        <source>Картка: %1</source>
        <translation>Card: %1</translation>
    </message>
    <message>
        <source>Логін не може бути порожнім!</source>
        <translation>The login must not be empty!</translation>
    </message>
    <message>
        <source>Впишіть прізвище та ім&apos;я: за ними людину впізнають у чеках і звітах.</source>
        <translation>Enter surname and first name: by them people are known in receipts and reports.</translation>
    </message>
    <message>
        <source>Виберіть групу прав: вона вирішує, що користувач може бачити і змінювати.</source>
        <translation>Choose a permission group: it decides what the user may see and change.</translation>
    </message>
    <message>
        <source>Виберіть групу магазинів.</source>
        <translation>Choose a shop group.</translation>
    </message>
    <message>
        <source>Телефон повинен складатися з десяти цифр, наприклад 0441234501, або бути порожнім.</source>
        <translation>The telephone must have ten digits, for example 0441234501, or be empty.</translation>
    </message>
    <message>
        <source>Паролі не співпадають! Впишіть той самий пароль двічі.</source>
        <translation>The passwords differ! Enter the same password twice.</translation>
    </message>
    <message>
        <source>Новому користувачу потрібен пароль: впишіть його двічі.</source>
        <translation>A new user needs a password: enter it twice.</translation>
    </message>
    <message>
        <source>Кнопка «Запропонувати» дає вільний ключ.</source>
        <translation>The button “Suggest” gives a free key.</translation>
    </message>
    <message>
        <source>Такий логін вже має інший користувач!</source>
        <translation>Another user has this login already!</translation>
    </message>
    <message>
        <source>Такий ключ вже має інший користувач! Кнопка «Запропонувати» дає вільний.</source>
        <translation>Another user has this key already! The button “Suggest” gives a free one.</translation>
    </message>
    <message>
        <source>новий</source>
        <translation>new</translation>
    </message>
    <message>
        <source>Забрати право в себе?</source>
        <translation>Take away your own right?</translation>
    </message>
    <message>
        <source>Це ваш власний запис. У групі прав «%1» користувачів не змінюють: після збереження ви вже не зможете повернути собі це право.</source>
        <translation>This is your own record. The permission group “%1” may not change users: once it is saved you cannot give yourself that right back.</translation>
    </message>
    <message>
        <source>Забрати право в себе</source>
        <translation>Take away my right</translation>
    </message>
    <message>
        <source>Продовжити редагування</source>
        <translation>Go on editing</translation>
    </message>
</context>
<context>
    <name>QArtReport</name>
    <message>
        <source>Номери змін обох днів для вибраного місця</source>
        <translation>Shift numbers of both days for the chosen place</translation>
    </message>
    <message>
        <source>&amp;Не групувати по даті</source>
        <translation>do &amp;not group by date</translation>
    </message>
    <message>
        <source>&amp;ліміт</source>
        <translation>&amp;limit</translation>
    </message>
    <message>
        <source>без обмеження</source>
        <translation>no limit</translation>
    </message>
    <message>
        <source>З&amp;упинити</source>
        <translation>Stop quer&amp;y</translation>
    </message>
    <message>
        <source>Звіт по товарах</source>
        <translation>Goods report</translation>
    </message>
    <message>
        <source>Сумарні дані:</source>
        <translation>Totals:</translation>
    </message>
    <message>
        <source>знижка бонусами:</source>
        <translation>discount with bonuses:</translation>
    </message>
    <message>
        <source>Кількість кг:</source>
        <translation>Quantity, kg:</translation>
    </message>
    <message>
        <source>Кількість шт.:</source>
        <translation>Quantity, pcs.:</translation>
    </message>
    <message>
        <source>Вартість:</source>
        <translation>Value:</translation>
    </message>
    <message>
        <source>Десять товарів з найбільшою сумою</source>
        <translation>Ten goods items with the largest amount</translation>
    </message>
    <message>
        <source>Початковий код</source>
        <translation>Original code</translation>
    </message>
    <message>
        <source>штрихкод</source>
        <translation>barcode</translation>
    </message>
    <message>
        <source>назва</source>
        <translation>name</translation>
    </message>
    <message>
        <source>середня ціна</source>
        <translation>average price</translation>
    </message>
    <message>
        <source>сума / кількість</source>
        <translation>amount / quantity</translation>
    </message>
    <message>
        <source>сума</source>
        <translation>amount</translation>
    </message>
    <message>
        <source>знижка</source>
        <translation>discount</translation>
    </message>
    <message>
        <source>дата</source>
        <translation>date</translation>
    </message>
    <message>
        <source>Усі групи товарів</source>
        <translation>All goods groups</translation>
    </message>
    <message>
        <source>Номери змін узято для іншого місця: %1.</source>
        <translation>The shift numbers were taken for another place: %1.</translation>
    </message>
    <message>
        <source>За %1 немає Z-звітів (%2). Виберіть день, за який вони є, або оновіть номери змін.</source>
        <translation>There are no Z-reports for %1 (%2). Choose a day that has some, or take the shift numbers again.</translation>
    </message>
    <message>
        <source>Початковий номер зміни більший за кінцевий.</source>
        <translation>The first shift number is greater than the last one.</translation>
    </message>
    <message>
        <source>Ліміт має бути цілим числом.</source>
        <translation>The limit must be a whole number.</translation>
    </message>
    <message>
        <source>Групи товарів: %1</source>
        <translation>Goods groups: %1</translation>
    </message>
    <message>
        <source>ціна</source>
        <translation>price</translation>
    </message>
    <message>
        <source>Лише продажі цих дат; без цього – усі чеки змін від першого до останнього номера, в яких би касах і коли б вони не були</source>
        <translation>Only sales of these dates; without it all receipts of the shifts from the first to the last number, of whatever register and day</translation>
    </message>
    <message>
        <source>зміни %1 – %2</source>
        <translation>shifts %1 – %2</translation>
    </message>
    <message>
        <source>, продано %1</source>
        <translation>, sold %1</translation>
    </message>
    <message>
        <source>не більше %1</source>
        <translation>at most %1</translation>
    </message>
    <message>
        <source>заванта&amp;жити</source>
        <translation>lo&amp;ad</translation>
    </message>
    <message>
        <source>зміна від</source>
        <translation>shift from</translation>
    </message>
    <message>
        <source>зміна до</source>
        <translation>shift to</translation>
    </message>
    <message>
        <source>Оновити номе&amp;ри</source>
        <translation>Update num&amp;bers</translation>
    </message>
    <message>
        <source>Груп&amp;и товарів</source>
        <translation>Goo&amp;ds groups</translation>
    </message>
    <message>
        <source>ли&amp;ше за ці дати</source>
        <translation>these dates onl&amp;y</translation>
    </message>
    <message>
        <source>середня &amp;ціна</source>
        <translation>average pri&amp;ce</translation>
    </message>
    <message>
        <source>діаграма</source>
        <translation>chart</translation>
    </message>
</context>
<context>
    <name>QCancelInvoice</name>
    <message>
        <source>Скасування передачі</source>
        <translation>Cancelling a transfer</translation>
    </message>
    <message>
        <source>При&amp;чина:</source>
        <translation>&amp;Reason:</translation>
    </message>
    <message>
        <source>&amp;Повернути в:</source>
        <translation>&amp;Put back into:</translation>
    </message>
    <message>
        <source>&amp;Скасувати передачу</source>
        <translation>&amp;Cancel the transfer</translation>
    </message>
    <message>
        <source>&amp;Залишити в дорозі</source>
        <translation>&amp;Leave it on the way</translation>
    </message>
    <message>
        <source>Накладна № %1 ще в дорозі: %2.
Після скасування товар повертається на залишок відправника, і прийняти накладну вже не можна.</source>
        <translation>Invoice No. %1 is still on the way: %2.
Once cancelled, the goods are back in the sender&apos;s stock and the invoice cannot be accepted any more.</translation>
    </message>
    <message>
        <source>Напишіть одержувачу, чому передачу скасовано.</source>
        <translation>Write to the receiver why the transfer is cancelled.</translation>
    </message>
</context>
<context>
    <name>QCashDrive</name>
    <message>
        <source>Передача в CashDrive</source>
        <translation>Exchange with CashDrive</translation>
    </message>
    <message>
        <source>Записати на каси</source>
        <translation>Write to the registers</translation>
    </message>
    <message>
        <source>Клієнти</source>
        <translation>Clients</translation>
    </message>
    <message>
        <source>Перезаписати
тільки змінені</source>
        <translation>Rewrite
changed ones only</translation>
    </message>
    <message>
        <source>Артикули</source>
        <translation>Articles</translation>
    </message>
    <message>
        <source> Не передавати</source>
        <translation> Do not send</translation>
    </message>
    <message>
        <source>Оновити</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Замінити</source>
        <translation>Replace</translation>
    </message>
    <message>
        <source>Передати знижки</source>
        <translation>Send discounts</translation>
    </message>
    <message>
        <source>Прочитати з кас</source>
        <translation>Read from the registers</translation>
    </message>
    <message>
        <source>Отримати транзакції</source>
        <translation>Receive transactions</translation>
    </message>
    <message>
        <source>Розібрати транзакції</source>
        <translation>Count transactions</translation>
    </message>
    <message>
        <source>Не враховувати суму
покупок</source>
        <translation>Leave out the sums
of purchases</translation>
    </message>
    <message>
        <source>автостарт щоденно</source>
        <translation>automatic start every day</translation>
    </message>
    <message>
        <source>Час дозвону</source>
        <translation>Time of exchange</translation>
    </message>
    <message>
        <source>Ввімкнути</source>
        <translation>Switch on</translation>
    </message>
    <message>
        <source>Запуст&amp;ити</source>
        <translation>S&amp;tart</translation>
    </message>
    <message>
        <source>З&amp;упинити</source>
        <translation>Sto&amp;p</translation>
    </message>
    <message>
        <source>Зв&apos;язок з БД 
не встановлено!</source>
        <translation>No connection
to the database!</translation>
    </message>
    <message>
        <source>Зберегти список у CSV…</source>
        <translation>Save the list as CSV…</translation>
    </message>
    <message>
        <source>Пропущені записи</source>
        <translation>Records left out</translation>
    </message>
    <message>
        <source>Наступний: %1,
поки відкрита ця вкладка</source>
        <translation>Next: %1,
while this tab is open</translation>
    </message>
    <message>
        <source>Вимкнено</source>
        <translation>Off</translation>
    </message>
    <message>
        <source>Останній: %1</source>
        <translation>Last: %1</translation>
    </message>
    <message>
        <source>ще не було</source>
        <translation>none yet</translation>
    </message>
    <message>
        <source>Автостарт дозвону пропущено: попередній дозвін ще триває.</source>
        <translation>The automatic start was skipped: the exchange before is still going on.</translation>
    </message>
    <message>
        <source>Товар або картка</source>
        <translation>Item or card</translation>
    </message>
    <message>
        <source>Файл CSV (*.csv)</source>
        <translation>CSV file (*.csv)</translation>
    </message>
    <message>
        <source>Ваші права дозволяють лише перегляд.</source>
        <translation>Your rights allow looking only.</translation>
    </message>
    <message>
        <source>Позначте, що передати або отримати.</source>
        <translation>Tick what is to be sent or received.</translation>
    </message>
    <message>
        <source>Список місць ще читається: повторіть за мить.</source>
        <translation>The places are still being read: try again in a moment.</translation>
    </message>
    <message>
        <source>Виберіть групу: на каси записуються картки її клієнтів.</source>
        <translation>Choose a group: the cards of its clients are written to the registers.</translation>
    </message>
    <message>
        <source>Дозвін CashDrive</source>
        <translation>CashDrive exchange</translation>
    </message>
    <message>
        <source>Зєднання з БД всановлено.</source>
        <translation>Connected to the database.</translation>
    </message>
    <message>
        <source>Дозвін триває.</source>
        <translation>The exchange is going on.</translation>
    </message>
    <message>
        <source>Зупинити дозвін і закрити вкладку?
Що вже розібрано, лишається; решту розбере наступний дозвін.</source>
        <translation>Stop the exchange and close the tab?
What is counted stays; the next exchange does the rest.</translation>
    </message>
    <message>
        <source>Зупинити і закрити</source>
        <translation>Stop and close</translation>
    </message>
</context>
<context>
    <name>QCashReport</name>
    <message>
        <source>Який рух готівки</source>
        <translation>Which moves of cash</translation>
    </message>
    <message>
        <source>Підсу&amp;мки:</source>
        <translation>Sums &amp;by:</translation>
    </message>
    <message>
        <source>Зупинити</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Внести / вилу&amp;чити…</source>
        <translation>&amp;Cash in / out…</translation>
    </message>
    <message>
        <source>Весь рух готівки</source>
        <translation>All cash</translation>
    </message>
    <message>
        <source>Внесено в каси</source>
        <translation>Brought into registers</translation>
    </message>
    <message>
        <source>Вилучено з кас</source>
        <translation>Taken out of registers</translation>
    </message>
    <message>
        <source>Надіслано до магазинів</source>
        <translation>Sent to shops</translation>
    </message>
    <message>
        <source>Прийнято від магазинів</source>
        <translation>Accepted from shops</translation>
    </message>
    <message>
        <source>Ще в дорозі</source>
        <translation>Still on the way</translation>
    </message>
    <message>
        <source>Не дійшло</source>
        <translation>Missing</translation>
    </message>
    <message>
        <source>за магазинами</source>
        <translation>by shop</translation>
    </message>
    <message>
        <source>за касами</source>
        <translation>by register</translation>
    </message>
    <message>
        <source>за операціями</source>
        <translation>by operation</translation>
    </message>
    <message>
        <source>за працівниками</source>
        <translation>by person</translation>
    </message>
    <message>
        <source>за днями</source>
        <translation>by day</translation>
    </message>
    <message>
        <source>одним рядком</source>
        <translation>in one line</translation>
    </message>
    <message>
        <source>Операції вибраного рядка</source>
        <translation>Operations of the chosen line</translation>
    </message>
    <message>
        <source>Виберіть рядок у списку вище.</source>
        <translation>Choose a line in the list above.</translation>
    </message>
    <message>
        <source>Лише перегляд: готівку вносить і вилучає користувач з повним дозволом.</source>
        <translation>View only: cash is brought in and taken out by a user with full right.</translation>
    </message>
    <message>
        <source>За ці дні готівку не вносили, не вилучали й не передавали.</source>
        <translation>On these days no cash was brought in, taken out or sent.</translation>
    </message>
    <message>
        <source>Рух готівки</source>
        <translation>Moves of cash</translation>
    </message>
</context>
<context>
    <name>QChangPass</name>
    <message>
        <source>Зміна пароля</source>
        <translation>Password change</translation>
    </message>
    <message>
        <source>&amp;Поточний пароль:</source>
        <translation>&amp;Current password:</translation>
    </message>
    <message>
        <source>&amp;Новий пароль:</source>
        <translation>&amp;New password:</translation>
    </message>
    <message>
        <source>Новий пароль &amp;ще раз:</source>
        <translation>&amp;Repeat new password:</translation>
    </message>
    <message>
        <source>&amp;Змінити</source>
        <translation>Chan&amp;ge</translation>
    </message>
    <message>
        <source>За&amp;крити</source>
        <translation>C&amp;lose</translation>
    </message>
    <message>
        <source>Попередження</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Помилка запиту</source>
        <translation>Query error</translation>
    </message>
    <message>
        <source>Нові паролі не співпадають!</source>
        <translation>The new passwords do not match!</translation>
    </message>
    <message>
        <source>Новий пароль не може бути пустим!</source>
        <translation>The new password cannot be empty!</translation>
    </message>
    <message>
        <source>Поточний пароль не вірний!</source>
        <translation>The current password is wrong!</translation>
    </message>
    <message>
        <source>Цей пароль використати не можна. Оберіть інший пароль.</source>
        <translation>This password cannot be used. Choose another password.</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
    <message>
        <source>Пароль ще записується. Зачекайте.</source>
        <translation>The password is still being written. Please wait.</translation>
    </message>
    <message>
        <source>Пароль не змінено.</source>
        <translation>The password has not been changed.</translation>
    </message>
</context>
<context>
    <name>QChekViewer</name>
    <message>
        <source>Чеки</source>
        <translation>Receipts</translation>
    </message>
    <message>
        <source>Заванта&amp;жити</source>
        <translation>Sho&amp;w</translation>
    </message>
    <message>
        <source>Зупи&amp;нити</source>
        <translation>Stop quer&amp;y</translation>
    </message>
    <message>
        <source>Список чеків</source>
        <translation>List of receipts</translation>
    </message>
    <message>
        <source>Сума по чеках</source>
        <translation>Total of the receipts</translation>
    </message>
    <message>
        <source>перевірити с&amp;уми</source>
        <translation>chec&amp;k sums</translation>
    </message>
    <message>
        <source>Червоним — чеки, суми яких не збігаються</source>
        <translation>In red: receipts whose sums do not match</translation>
    </message>
    <message>
        <source>Перевірка сум…</source>
        <translation>Checking the sums…</translation>
    </message>
    <message>
        <source>Суми збігаються.</source>
        <translation>The sums match.</translation>
    </message>
    <message>
        <source>Суми не збігаються, чеків: %1</source>
        <translation>The sums do not match, receipts: %1</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Суми не перевірено.</source>
        <translation>The sums are not checked.</translation>
    </message>
    <message>
        <source>лише чеки з товаром %1 %2</source>
        <translation>only receipts with article %1 %2</translation>
    </message>
    <message>
        <source>ціна %1</source>
        <translation>price %1</translation>
    </message>
    <message>
        <source>продано %1</source>
        <translation>sold %1</translation>
    </message>
    <message>
        <source>Усі &amp;чеки місця</source>
        <translation>All &amp;receipts of the place</translation>
    </message>
    <message>
        <source>Суми чека не збігаються.</source>
        <translation>The sums of the receipt do not agree.</translation>
    </message>
</context>
<context>
    <name>QCloseCash</name>
    <message>
        <source>По&amp;раховано:</source>
        <translation>&amp;Counted:</translation>
    </message>
    <message>
        <source>Різниця:</source>
        <translation>Difference:</translation>
    </message>
    <message>
        <source>Різниця</source>
        <translation>Difference</translation>
    </message>
    <message>
        <source>По&amp;класти:</source>
        <translation>&amp;Put:</translation>
    </message>
    <message>
        <source>&amp;Операція каси:</source>
        <translation>O&amp;peration of the register:</translation>
    </message>
    <message>
        <source>&amp;Повідомлення:</source>
        <translation>&amp;Message:</translation>
    </message>
    <message>
        <source>При&amp;йняти F9</source>
        <translation>&amp;Accept F9</translation>
    </message>
    <message>
        <source>&amp;Залишити в дорозі</source>
        <translation>&amp;Leave it on the way</translation>
    </message>
    <message>
        <source>у сейф, без каси</source>
        <translation>into the safe, no register</translation>
    </message>
    <message>
        <source>З магазину: %1</source>
        <translation>From shop: %1</translation>
    </message>
    <message>
        <source>До магазину: %1</source>
        <translation>To shop: %1</translation>
    </message>
    <message>
        <source>Відправлено: %1</source>
        <translation>Sent: %1</translation>
    </message>
    <message>
        <source>Надіслано готівки: %1</source>
        <translation>Cash sent: %1</translation>
    </message>
    <message>
        <source>Повідомлення відправника: %1</source>
        <translation>Message of the sender: %1</translation>
    </message>
    <message>
        <source>Приймання готівки за накладною № %1</source>
        <translation>Acceptance of cash, invoice No. %1</translation>
    </message>
    <message>
        <source>Скасування накладної № %1</source>
        <translation>Cancelling of invoice No. %1</translation>
    </message>
    <message>
        <source>Після скасування готівка повертається відправнику, і прийняти накладну вже не можна.</source>
        <translation>After cancelling the cash goes back to the sender, and the invoice cannot be accepted any more.</translation>
    </message>
    <message>
        <source>При&amp;чина:</source>
        <translation>&amp;Reason:</translation>
    </message>
    <message>
        <source>&amp;Скасувати передачу</source>
        <translation>&amp;Cancel the transfer</translation>
    </message>
    <message>
        <source>немає</source>
        <translation>none</translation>
    </message>
    <message>
        <source>%1, не вистачає</source>
        <translation>%1, missing</translation>
    </message>
    <message>
        <source>%1, зайві</source>
        <translation>%1, too much</translation>
    </message>
    <message>
        <source>Напишіть одержувачу, чому передачу скасовано.</source>
        <translation>Write to the receiver why the transfer is cancelled.</translation>
    </message>
    <message>
        <source>Надіслано %1, пораховано %2, різниця %3.
Потім змінити пораховане вже не можна.</source>
        <translation>%1 was sent, %2 counted, difference %3.
What was counted cannot be changed afterwards.</translation>
    </message>
    <message>
        <source>&amp;Прийняти з різницею</source>
        <translation>&amp;Accept with differences</translation>
    </message>
    <message>
        <source>&amp;Рахувати далі</source>
        <translation>&amp;Go on counting</translation>
    </message>
</context>
<context>
    <name>QClosePeriod</name>
    <message>
        <source>Закриття періоду</source>
        <translation>Closing the period</translation>
    </message>
    <message>
        <source>&amp;Товар:</source>
        <translation>&amp;Goods:</translation>
    </message>
    <message>
        <source>Скануйте; або штрихкод, код чи назва і Enter</source>
        <translation>Scan; or barcode, code or name and Enter</translation>
    </message>
    <message>
        <source>Вагові товари магазину</source>
        <translation>The shop&apos;s weighed goods</translation>
    </message>
    <message>
        <source>&amp;Решта за програмою…</source>
        <translation>The &amp;rest as by the program…</translation>
    </message>
    <message>
        <source>&amp;Закрити період F9</source>
        <translation>&amp;Close the period F9</translation>
    </message>
    <message>
        <source>&amp;Скасувати</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Не пораховано позицій: %1. Записати їх залишок за програмою, не рахуючи?</source>
        <translation>Not counted: %1. Write their stock as by the program, without counting?</translation>
    </message>
    <message>
        <source>&amp;Записати за програмою</source>
        <translation>&amp;Write as by the program</translation>
    </message>
    <message>
        <source>Закрити період з різницею? Залишки в залі стануть такими, як пораховано.</source>
        <translation>Close the period with differences? The stock on the shop floor becomes what was counted.</translation>
    </message>
    <message>
        <source>&amp;Закрити період</source>
        <translation>&amp;Close the period</translation>
    </message>
    <message>
        <source>«%1» немає серед товарів, які рахують.</source>
        <translation>“%1” is not among the goods that are counted.</translation>
    </message>
    <message>
        <source>Магазин: %1, каса «%2»</source>
        <translation>Shop: %1, register “%2”</translation>
    </message>
    <message>
        <source>День періоду: %1 з %2</source>
        <translation>Day of the period: %1 of %2</translation>
    </message>
    <message>
        <source>, почався %1</source>
        <translation>, begun on %1</translation>
    </message>
    <message>
        <source>Востаннє тут рахували: %1</source>
        <translation>Counted here last: %1</translation>
    </message>
    <message>
        <source>Зміна закрита: пораховане відкриє нову, першого дня наступного періоду.</source>
        <translation>The shift is closed: what is counted opens a new one, on the first day of the next period.</translation>
    </message>
    <message>
        <source>Порахуйте вагові товари в залі, у кілограмах. Enter — наступний непорахований товар.</source>
        <translation>Count the weighed goods on the shop floor, in kilograms. Enter goes to the next one not counted.</translation>
    </message>
    <message>
        <source>Поки ви відповідали, щось іще скановано: перевірте і закрийте період ще раз.</source>
        <translation>Something else was scanned while you answered: check it and close the period again.</translation>
    </message>
    <message>
        <source>Невідомо, чи період закрито: зв&apos;язок обірвався.</source>
        <translation>It is not known whether the period was closed: the connection broke.</translation>
    </message>
    <message>
        <source>Пораховане ще не записано.</source>
        <translation>What was counted is not saved yet.</translation>
    </message>
    <message>
        <source>&amp;Закрити без збереження</source>
        <translation>&amp;Close without saving</translation>
    </message>
    <message>
        <source>&amp;Рахувати далі</source>
        <translation>&amp;Go on counting</translation>
    </message>
</context>
<context>
    <name>QComands</name>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>назва</source>
        <translation>name</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Видалення не реалізоване!</source>
        <translation>Deletion is not implemented!</translation>
    </message>
</context>
<context>
    <name>QImportClient</name>
    <message>
        <source>Імпорт клієнтів</source>
        <translation>Import of clients</translation>
    </message>
    <message>
        <source>&amp;Файл для імпорту</source>
        <translation>&amp;File to import</translation>
    </message>
    <message>
        <source>шлях до файла DBF, Enter читає його</source>
        <translation>path of a DBF file, Enter reads it</translation>
    </message>
    <message>
        <source>Вибрат&amp;и…</source>
        <translation>Ch&amp;oose…</translation>
    </message>
    <message>
        <source>Кодуванн&amp;я</source>
        <translation>&amp;Code page</translation>
    </message>
    <message>
        <source>Лише для показу: коди карток і знижок – цифри</source>
        <translation>For showing only: the codes of cards and levels are digits</translation>
    </message>
    <message>
        <source>&amp;група яка імпортується</source>
        <translation>&amp;group of the imported cards</translation>
    </message>
    <message>
        <source>код</source>
        <translation>code</translation>
    </message>
    <message>
        <source>Код групи магазинів, до якої потраплять нові картки</source>
        <translation>Code of the shop group that new cards get</translation>
    </message>
    <message>
        <source>про&amp;бний запуск</source>
        <translation>tri&amp;al</translation>
    </message>
    <message>
        <source>Порахує, що зміниться, і нічого не запише</source>
        <translation>Counts what would change and writes nothing</translation>
    </message>
    <message>
        <source>Ста&amp;рт</source>
        <translation>&amp;Begin</translation>
    </message>
    <message>
        <source>Стоп</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Записи файла</source>
        <translation>Records of the file</translation>
    </message>
    <message>
        <source>Записи, яким відмовлено</source>
        <translation>Refused records</translation>
    </message>
    <message>
        <source>Зберегти від&amp;мови…</source>
        <translation>Save the refuse&amp;d…</translation>
    </message>
    <message>
        <source>Файл CSV: номер запису, код, причина</source>
        <translation>CSV file: number of the record, code, reason</translation>
    </message>
    <message>
        <source>&amp;Встановити суми клієнтів згідно імпортованих знижок</source>
        <translation>Set the sums of clients b&amp;y their imported levels</translation>
    </message>
    <message>
        <source>Час виконання:</source>
        <translation>Time taken:</translation>
    </message>
    <message>
        <source>%1 с</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Open DBF file</source>
        <translation>Open DBF file</translation>
    </message>
    <message>
        <source>DBF (*.dbf)</source>
        <translation>DBF (*.dbf)</translation>
    </message>
    <message>
        <source>Зберегти файл</source>
        <translation>Save file</translation>
    </message>
    <message>
        <source>csv (*.csv)</source>
        <translation>csv (*.csv)</translation>
    </message>
    <message>
        <source>Файл не вибрано</source>
        <translation>No file chosen</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source> – відмови.csv</source>
        <translation> – refused.csv</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Суми клієнтів ще встановлюються. Дочекайтесь кінця або натисніть «Стоп».</source>
        <translation>The sums of the clients are still being set. Wait for the end or press &quot;Stop&quot;.</translation>
    </message>
    <message>
        <source>Імпорт ще триває. Дочекайтесь кінця або натисніть «Стоп».</source>
        <translation>The import is still running. Wait for the end or press &quot;Stop&quot;.</translation>
    </message>
    <message>
        <source>Читання файла скасовано.</source>
        <translation>Reading the file was cancelled.</translation>
    </message>
    <message>
        <source>Зупиняється…</source>
        <translation>Stopping…</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>Читання файла %1</source>
        <translation>Reading the file %1</translation>
    </message>
    <message>
        <source>Записів: %1, полів: %2.</source>
        <translation>Records: %1, fields: %2.</translation>
    </message>
    <message>
        <source>Файл обірвано: за його заголовком записів має бути %1.</source>
        <translation>The file is cut off: by its header there are %1 records.</translation>
    </message>
    <message>
        <source>Останній запис неповний.</source>
        <translation>The last record is not whole.</translation>
    </message>
    <message>
        <source>За заголовком файла це всі записи, але за ними є місце ще для %1: вони не прочитані.</source>
        <translation>By the header of the file these are all records, but behind them is room for %1 more: they were not read.</translation>
    </message>
    <message>
        <source>Показано перші %1.</source>
        <translation>The first %1 are shown.</translation>
    </message>
    <message>
        <source>Вибраний файл має неправильну структуру!</source>
        <translation>The chosen file has a wrong structure!</translation>
    </message>
    <message>
        <source>такої групи магазинів немає</source>
        <translation>there is no such shop group</translation>
    </message>
    <message>
        <source>Файл ще читається.</source>
        <translation>The file is still being read.</translation>
    </message>
    <message>
        <source>Процес імпорту вже запущений.</source>
        <translation>The import is running already.</translation>
    </message>
    <message>
        <source>Файл не вибрано. Виберіть файл для імпорту.</source>
        <translation>No file is chosen. Choose a file to import.</translation>
    </message>
    <message>
        <source>У файлі немає записів.</source>
        <translation>The file has no records.</translation>
    </message>
    <message>
        <source>Вкажіть код групи магазинів, до якої потраплять нові картки.</source>
        <translation>Give the code of the shop group that new cards are to get.</translation>
    </message>
    <message>
        <source>У вас є право лише на пробний запуск.</source>
        <translation>You may only run a trial.</translation>
    </message>
    <message>
        <source>Перевірка файла для імпорту</source>
        <translation>Checking the file to import</translation>
    </message>
    <message>
        <source>Групи магазинів %1 немає: імпорт не розпочато.</source>
        <translation>There is no shop group %1: the import has not begun.</translation>
    </message>
    <message>
        <source>Імпортувати</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Імпорт не розпочато, у базу нічого не записано.</source>
        <translation>The import has not begun, nothing was written to the database.</translation>
    </message>
    <message>
        <source>%1 (записів: %2)</source>
        <translation>%1 (records: %2)</translation>
    </message>
    <message>
        <source>та інших</source>
        <translation>and others</translation>
    </message>
    <message>
        <source>У базі немає рівнів знижки: %1. Цим записам буде відмовлено. Щоб імпортувати і їх, спершу додайте ці рівні у таблиці «Знижки».</source>
        <translation>The database does not have the discount levels %1. These records will be refused. To import them too, add these levels in the table &quot;Discounts&quot; first.</translation>
    </message>
    <message>
        <source>У файлі є картка з кодом 1. Під цим кодом купують усі, хто без картки: вони дістануть її знижку.</source>
        <translation>The file has a card with the code 1. Everybody without a card buys under this code and would get its discount.</translation>
    </message>
    <message>
        <source>Імпортувати решту записів (%1)?</source>
        <translation>Import the other records (%1)?</translation>
    </message>
    <message>
        <source>Пробний імпорт клієнтів</source>
        <translation>Trial import of clients</translation>
    </message>
    <message>
        <source>У вас немає права встановлювати суми.</source>
        <translation>You may not set the sums.</translation>
    </message>
    <message>
        <source>Встановити суми клієнтів?</source>
        <translation>Set the sums of the clients?</translation>
    </message>
    <message>
        <source>Кожна картка дістане суму свого рівня знижки, а картки з рівнями, що не ростуть самі, – фіксовану знижку. Змінюються всі картки мережі; доки це триває, каси на них чекають.</source>
        <translation>Each card gets the sum of its discount level, and cards whose level does not rise by itself a fixed discount. All cards of the chain change; registers wait for them meanwhile.</translation>
    </message>
    <message>
        <source>Встановити</source>
        <translation>Set</translation>
    </message>
    <message>
        <source>Суми клієнтів встановлюються</source>
        <translation>The sums of the clients are being set</translation>
    </message>
    <message>
        <source>У файлі більше записів, ніж можна імпортувати за раз: %1.</source>
        <translation>The file has more records than can be imported at once: %1.</translation>
    </message>
</context>
<context>
    <name>QImportPrices</name>
    <message>
        <source>Імпорт прайс-листа</source>
        <translation>Import of a price list</translation>
    </message>
    <message>
        <source>Кодуванн&amp;я</source>
        <translation>&amp;Code page</translation>
    </message>
    <message>
        <source>&amp;Розділювач колонок</source>
        <translation>Column se&amp;parator</translation>
    </message>
    <message>
        <source>Перші записи файла</source>
        <translation>First records of the file</translation>
    </message>
    <message>
        <source>Записи, які не імпортуються</source>
        <translation>Records that are not imported</translation>
    </message>
    <message>
        <source>Зберегти від&amp;мови…</source>
        <translation>Save the refuse&amp;d…</translation>
    </message>
    <message>
        <source>Файл CSV: номер запису, запис, причина</source>
        <translation>CSV file: number of the record, record, reason</translation>
    </message>
    <message>
        <source>&amp;Імпортувати…</source>
        <translation>&amp;Import…</translation>
    </message>
    <message>
        <source>&amp;Стоп</source>
        <translation>&amp;Stop</translation>
    </message>
    <message>
        <source>&amp;Закрити</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>табуляція</source>
        <translation>tab</translation>
    </message>
    <message>
        <source>крапка з комою  ;</source>
        <translation>semicolon  ;</translation>
    </message>
    <message>
        <source>кома  ,</source>
        <translation>comma  ,</translation>
    </message>
    <message>
        <source>риска  |</source>
        <translation>bar  |</translation>
    </message>
    <message>
        <source>Записів: %1.</source>
        <translation>Records: %1.</translation>
    </message>
    <message>
        <source>Нових товарів: %1, нова ціна: %2, ціна та сама: %3.</source>
        <translation>New goods: %1, new price: %2, the same price: %3.</translation>
    </message>
    <message>
        <source>Не імпортуються: %1.</source>
        <translation>Not imported: %1.</translation>
    </message>
    <message>
        <source>Показано перші %1.</source>
        <translation>The first %1 are shown.</translation>
    </message>
    <message>
        <source>Запис</source>
        <translation>Record</translation>
    </message>
    <message>
        <source>Зберегти файл</source>
        <translation>Save file</translation>
    </message>
    <message>
        <source>csv (*.csv)</source>
        <translation>csv (*.csv)</translation>
    </message>
    <message>
        <source>Назва товару</source>
        <translation>Name of the goods item</translation>
    </message>
    <message>
        <source>Штрихкод</source>
        <translation>Barcode</translation>
    </message>
    <message>
        <source>Ціна у файлі</source>
        <translation>Price in the file</translation>
    </message>
    <message>
        <source>Що буде</source>
        <translation>What happens</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>Перевірка файла %1</source>
        <translation>Checking the file %1</translation>
    </message>
    <message>
        <source>У файлі немає нічого, що змінило б товари.</source>
        <translation>The file has nothing that would change the goods.</translation>
    </message>
    <message>
        <source>Читання файла скасовано.</source>
        <translation>Reading the file was cancelled.</translation>
    </message>
    <message>
        <source>Зупиняється…</source>
        <translation>Stopping…</translation>
    </message>
    <message>
        <source>Імпорт ще триває. Дочекайтесь кінця або натисніть «Стоп».</source>
        <translation>The import is still running. Wait for the end or press &quot;Stop&quot;.</translation>
    </message>
    <message>
        <source>Цін, які зміняться в 10 і більше разів: %1. Ціна у файлі має бути в гривнях.</source>
        <translation>Prices that change tenfold or more: %1. The price in the file has to be in hryvnias.</translation>
    </message>
    <message>
        <source>Записів, які не імпортуються: %1 з %2.</source>
        <translation>Records that are not imported: %1 of %2.</translation>
    </message>
    <message>
        <source>Перевірте чи відповідає файл наступним вимогам.</source>
        <translation>Check whether the file meets these demands.</translation>
    </message>
    <message>
        <source>Файл повинен бути формату</source>
        <translation>The file has to be of the format</translation>
    </message>
    <message>
        <source> *.csv</source>
        <translation> *.csv</translation>
    </message>
    <message>
        <source>з символом розділення колонок</source>
        <translation>with the column separator</translation>
    </message>
    <message>
        <source>Повинен складатися з 3-ох колонок:</source>
        <translation>It has to consist of 3 columns:</translation>
    </message>
    <message>
        <source>1-ша Назва товару, 2-га штрихкод EAN13 товару, 3-тя ціна товару в грн в цифровому форматі</source>
        <translation>1st the name of the item, 2nd its EAN13 barcode, 3rd its price in UAH as a number</translation>
    </message>
    <message>
        <source>Дані повинні починатись з першого рядка, без заголовка таблиці.</source>
        <translation>The data have to begin in the first line, without a heading.</translation>
    </message>
    <message>
        <source>Продовжити імпорт?</source>
        <translation>Go on with the import?</translation>
    </message>
    <message>
        <source>Так</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Продовжити?</source>
        <translation>Go on?</translation>
    </message>
    <message>
        <source>Імпорт прайс-листа %1</source>
        <translation>Import of the price list %1</translation>
    </message>
    <message>
        <source> – відмови.csv</source>
        <translation> – refused.csv</translation>
    </message>
    <message>
        <source>Записи, які не імпортуються: %1</source>
        <translation>Records that are not imported: %1</translation>
    </message>
</context>
<context>
    <name>QIntegrity</name>
    <message>
        <source>Перевірка даних</source>
        <translation>Check of the data</translation>
    </message>
    <message>
        <source>Переві&amp;рити</source>
        <translation>&amp;Check</translation>
    </message>
    <message>
        <source>Перевіряє всю базу і нічого в ній не змінює; продавати можна й тоді</source>
        <translation>Checks the whole database and changes nothing in it; selling may go on</translation>
    </message>
    <message>
        <source>Стоп</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Перевірки</source>
        <translation>Checks</translation>
    </message>
    <message>
        <source>Перевірка</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>Стан</source>
        <translation>State</translation>
    </message>
    <message>
        <source>Знайдені помилки</source>
        <translation>What was found wrong</translation>
    </message>
    <message>
        <source>Перейт&amp;и до запису</source>
        <translation>&amp;Go to the record</translation>
    </message>
    <message>
        <source>зупинено</source>
        <translation>stopped</translation>
    </message>
    <message>
        <source>перевіряється…</source>
        <translation>being checked…</translation>
    </message>
    <message>
        <source>помилок: %1…</source>
        <translation>wrong: %1…</translation>
    </message>
    <message>
        <source>не прочитано</source>
        <translation>not read</translation>
    </message>
    <message>
        <source>гаразд</source>
        <translation>fine</translation>
    </message>
    <message>
        <source>помилок: %1</source>
        <translation>wrong: %1</translation>
    </message>
    <message>
        <source>Усі перевірки</source>
        <translation>All checks</translation>
    </message>
    <message>
        <source>№</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Каса</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>Що не так</source>
        <translation>What is wrong</translation>
    </message>
    <message>
        <source>Що зробити</source>
        <translation>What to do</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>У вас немає права перевіряти базу.</source>
        <translation>You have no right to check the database.</translation>
    </message>
    <message>
        <source>не показано ще: %1</source>
        <translation>not shown: %1 more</translation>
    </message>
    <message>
        <source>«Перевірити» прочитає всю базу і покаже тут, що в ній не так. Нічого не змінюється.</source>
        <translation>“Check” reads the whole database and shows here what is wrong in it. Nothing is changed.</translation>
    </message>
    <message>
        <source>Цієї перевірки не виконано: %1</source>
        <translation>This check was not made: %1</translation>
    </message>
    <message>
        <source>Перевіряється…</source>
        <translation>Being checked…</translation>
    </message>
    <message>
        <source>Помилок не знайдено.</source>
        <translation>Nothing wrong was found.</translation>
    </message>
    <message>
        <source>%1: не показано ще %2.</source>
        <translation>%1: %2 more are not shown.</translation>
    </message>
    <message>
        <source>%1: не перевірено. %2</source>
        <translation>%1: not checked. %2</translation>
    </message>
    <message>
        <source>Почато %1</source>
        <translation>Begun %1</translation>
    </message>
    <message>
        <source>, закінчено %1.</source>
        <translation>, ended %1.</translation>
    </message>
</context>
<context>
    <name>QLoadedUser</name>
    <message>
        <source>Користувача не знайдено!
Перезавантажте програму!</source>
        <translation>The user is not found!
Restart the program!</translation>
    </message>
    <message>
        <source>Id параметру виходить за межі списку!</source>
        <translation>The parameter id is outside the list!</translation>
    </message>
    <message>
        <source>Користувача не знайдено!</source>
        <translation>The user is not found!</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
</context>
<context>
    <name>QManAction</name>
    <message>
        <source>Акці&amp;я:</source>
        <translation>Promoti&amp;on:</translation>
    </message>
    <message>
        <source>&amp;Група товарів:</source>
        <translation>Goo&amp;ds group:</translation>
    </message>
    <message>
        <source>&amp;Мають акцію:</source>
        <translation>Have the promotio&amp;n:</translation>
    </message>
    <message>
        <source>Магаз&amp;ини:</source>
        <translation>&amp;Shops:</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>Назва або код товару</source>
        <translation>Name or code of an item</translation>
    </message>
    <message>
        <source>Список шт&amp;рихкодів…</source>
        <translation>&amp;List of barcodes…</translation>
    </message>
    <message>
        <source>Перег&amp;лянути</source>
        <translation>Previe&amp;w</translation>
    </message>
    <message>
        <source>З&amp;упинити</source>
        <translation>Stop quer&amp;y</translation>
    </message>
    <message>
        <source>Призна&amp;чити акцію</source>
        <translation>Assi&amp;gn the promotion</translation>
    </message>
    <message>
        <source>знижка %1 %</source>
        <translation>discount %1 %</translation>
    </message>
    <message>
        <source>%1; не діє ніколи: %2</source>
        <translation>%1; never in force: %2</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Назва товару</source>
        <translation>Name of the goods item</translation>
    </message>
    <message>
        <source>Ціна без акції</source>
        <translation>Price without promotion</translation>
    </message>
    <message>
        <source>Має акцію</source>
        <translation>Has the promotion</translation>
    </message>
    <message>
        <source>Ціна зараз</source>
        <translation>Price now</translation>
    </message>
    <message>
        <source>Ціна з вибраною</source>
        <translation>Price with the chosen one</translation>
    </message>
    <message>
        <source>Що буде</source>
        <translation>What happens</translation>
    </message>
    <message>
        <source>Виберіть акцію, товари й магазини та натисніть «Переглянути».</source>
        <translation>Choose a promotion, goods and shops, and press “Preview”.</translation>
    </message>
    <message>
        <source>Виберіть акцію</source>
        <translation>Choose a promotion</translation>
    </message>
    <message>
        <source>Будь-яку або жодної</source>
        <translation>Any or none</translation>
    </message>
    <message>
        <source>Усі групи товарів</source>
        <translation>All goods groups</translation>
    </message>
    <message>
        <source>Усі магазини</source>
        <translation>All shops</translation>
    </message>
    <message>
        <source>Акція ще призначається. Дочекайтесь кінця або натисніть «Зупинити».</source>
        <translation>The promotion is still being assigned. Wait for the end or press “Stop query”.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Акції буде знято з вибраних товарів.</source>
        <translation>Promotions will be taken off the chosen goods.</translation>
    </message>
    <message>
        <source>Цю акцію вже видалив хтось інший.</source>
        <translation>Somebody else has deleted this promotion already.</translation>
    </message>
    <message>
        <source>Умови змінено: натисніть «Переглянути» ще раз.</source>
        <translation>The conditions have changed: press “Preview” once more.</translation>
    </message>
    <message>
        <source>Виберіть акцію. Щоб зняти акцію з товарів, виберіть «Без акції».</source>
        <translation>Choose a promotion. To take promotions off goods, choose “Без акції”.</translation>
    </message>
    <message>
        <source>Виберіть хоча б один магазин.</source>
        <translation>Choose at least one shop.</translation>
    </message>
    <message>
        <source>Перегляд акції %1</source>
        <translation>Preview of the promotion %1</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>Акція: %1</source>
        <translation>Promotion: %1</translation>
    </message>
    <message>
        <source>За цими умовами нічого не знайдено.</source>
        <translation>Nothing matches these conditions.</translation>
    </message>
    <message>
        <source>У вас є право лише переглядати: призначати акції ви не можете.</source>
        <translation>You may only look here: you cannot assign promotions.</translation>
    </message>
    <message>
        <source>Спершу натисніть «Переглянути».</source>
        <translation>Press “Preview” first.</translation>
    </message>
    <message>
        <source>За цими умовами нічого не зміниться.</source>
        <translation>Under these conditions nothing will change.</translation>
    </message>
    <message>
        <source>Товарів: %1, магазинів: %2, разом цін: %3.</source>
        <translation>Goods: %1, shops: %2, prices in all: %3.</translation>
    </message>
    <message>
        <source>Зняти акції з показаних товарів?
%1
Без знижки вони продаватимуться одразу.</source>
        <translation>Take promotions off the goods shown?
%1
They will be sold without a discount at once.</translation>
    </message>
    <message>
        <source>Призначити акцію «%1»?
%2
Акція не діє ніколи: %3</source>
        <translation>Assign the promotion “%1”?
%2
It is never in force: %3</translation>
    </message>
    <message>
        <source>Призначити акцію «%1»?
%2
Стан акції: %3. Акції, які ці товари мають зараз, буде замінено.</source>
        <translation>Assign the promotion “%1”?
%2
Its state: %3. It takes the place of the promotions that these goods have now.</translation>
    </message>
    <message>
        <source>Управління акціями</source>
        <translation>Promotions management</translation>
    </message>
    <message>
        <source>Зняти</source>
        <translation>Take off</translation>
    </message>
    <message>
        <source>Призначити</source>
        <translation>Assign</translation>
    </message>
    <message>
        <source>Призначення акції %1</source>
        <translation>Assigning the promotion %1</translation>
    </message>
    <message>
        <source>Перегляд зупинено.</source>
        <translation>The preview was stopped.</translation>
    </message>
    <message>
        <source>Зупиняється…</source>
        <translation>Stopping…</translation>
    </message>
    <message>
        <source>З&amp;няти акції</source>
        <translation>Ta&amp;ke promotions off</translation>
    </message>
    <message>
        <source>&amp;Ціна з пріоритетом:</source>
        <translation>Pri&amp;ce with priority:</translation>
    </message>
</context>
<context>
    <name>QManFinance</name>
    <message>
        <source>Передачі готівки між магазинами</source>
        <translation>Cash between shops</translation>
    </message>
    <message>
        <source>Рух готівки: каси й передачі</source>
        <translation>Moves of cash: registers and transfers</translation>
    </message>
</context>
<context>
    <name>QManGoods</name>
    <message>
        <source>Чому така ціна</source>
        <translation>Why this price</translation>
    </message>
    <message>
        <source>Скасувати останню зміну</source>
        <translation>Undo the last change</translation>
    </message>
    <message>
        <source>Записати зміни</source>
        <translation>Write the changes</translation>
    </message>
    <message>
        <source>Виберіть товари й те, що змінити, та натисніть «Переглянути».</source>
        <translation>Choose the goods and what to change, and press “Preview”.</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Назва товару</source>
        <translation>Name of the goods item</translation>
    </message>
    <message>
        <source>Група</source>
        <translation>Group</translation>
    </message>
    <message>
        <source>Базова ціна</source>
        <translation>Base price</translation>
    </message>
    <message>
        <source>Яка ціна</source>
        <translation>Which price</translation>
    </message>
    <message>
        <source>Ціна зараз</source>
        <translation>Price now</translation>
    </message>
    <message>
        <source>Нова ціна</source>
        <translation>New price</translation>
    </message>
    <message>
        <source>Різниця</source>
        <translation>Difference</translation>
    </message>
    <message>
        <source>Інших цін</source>
        <translation>Other prices</translation>
    </message>
    <message>
        <source>Що буде</source>
        <translation>What happens</translation>
    </message>
    <message>
        <source>Зараз</source>
        <translation>Now</translation>
    </message>
    <message>
        <source>Буде</source>
        <translation>Then</translation>
    </message>
    <message>
        <source>Зміни ще записуються. Дочекайтесь кінця або натисніть «Зупинити».</source>
        <translation>The changes are still being written. Wait for the end or press “Stop query”.</translation>
    </message>
    <message>
        <source>Управління товарами</source>
        <translation>Goods management</translation>
    </message>
    <message>
        <source>Останню зміну (%1; записано: %2) можна скасувати лише тут і доки відкрита ця вкладка.
Закрити її?</source>
        <translation>The last change (%1; written: %2) can be undone only here, and as long as this tab is open.
Close it?</translation>
    </message>
    <message>
        <source>Закрити</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Умови змінено: натисніть «Переглянути» ще раз.</source>
        <translation>The conditions have changed: press “Preview” once more.</translation>
    </message>
    <message>
        <source>Перегляд змін товарів</source>
        <translation>Preview of changes to goods</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>За цими умовами нічого не знайдено.</source>
        <translation>Nothing matches these conditions.</translation>
    </message>
    <message>
        <source>У вас є право лише переглядати: змінювати товари ви не можете.</source>
        <translation>You may only look here: you cannot change goods.</translation>
    </message>
    <message>
        <source>Спершу натисніть «Переглянути».</source>
        <translation>Press “Preview” first.</translation>
    </message>
    <message>
        <source>Виберіть нове значення.</source>
        <translation>Choose a new value.</translation>
    </message>
    <message>
        <source>За цими умовами нічого не зміниться.</source>
        <translation>Under these conditions nothing will change.</translation>
    </message>
    <message>
        <source>Скасувати нічого: тут ще нічого не записано.</source>
        <translation>There is nothing to undo: nothing has been written here yet.</translation>
    </message>
    <message>
        <source>Записати зміни?</source>
        <translation>Write the changes?</translation>
    </message>
    <message>
        <source>З них є в залишках магазинів: %1. Продати їх буде не можна.</source>
        <translation>Of them in stock in shops: %1. They cannot be sold then.</translation>
    </message>
    <message>
        <source>З них у дорозі між магазинами: %1. Прийняти їх можна буде.</source>
        <translation>Of them on the way between shops: %1. They can be accepted all the same.</translation>
    </message>
    <message>
        <source>Увага: %1 з них уже змінено останньою зміною, вони зміняться ще раз.</source>
        <translation>Attention: %1 of them were changed by the last change already and will change once more.</translation>
    </message>
    <message>
        <source>Це службова група: її товари не продаються.</source>
        <translation>This is a service group: its goods are not sold.</translation>
    </message>
    <message>
        <source>Записати</source>
        <translation>Write</translation>
    </message>
    <message>
        <source>Умови змінилися, поки ви відповідали: нічого не записано. Перегляньте ще раз.</source>
        <translation>The conditions changed while you were answering: nothing was written. Preview once more.</translation>
    </message>
    <message>
        <source>Зміна товарів: %1</source>
        <translation>Changing goods: %1</translation>
    </message>
    <message>
        <source>Повернути те, що було до останньої зміни?
%1
Змінено було: %2.</source>
        <translation>Put back what was there before the last change?
%1
Changed were: %2.</translation>
    </message>
    <message>
        <source>Повернути</source>
        <translation>Put back</translation>
    </message>
    <message>
        <source>Скасування зміни товарів</source>
        <translation>Undoing a change to goods</translation>
    </message>
    <message>
        <source>Перегляд зупинено.</source>
        <translation>The preview was stopped.</translation>
    </message>
</context>
<context>
    <name>QMessDlg</name>
    <message>
        <source>Ні</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>QOverview</name>
    <message>
        <source>Магазини і каси</source>
        <translation>Shops and registers</translation>
    </message>
    <message>
        <source>Що потребує уваги</source>
        <translation>What needs a hand</translation>
    </message>
    <message>
        <source>Оборот за останні дні</source>
        <translation>Turnover of the last days</translation>
    </message>
    <message>
        <source>Без індексів для швидких звітів чеки не читаються: не видно останнього чека і початку зміни, замість нього показано, після якого часу її відкрито (Сервіс → Прискорити звіти…).</source>
        <translation>Without the indexes for quick reports no receipts are read: the last receipt and the begin of a shift are not seen; instead it is shown after what time the shift was opened (Service → Speed up reports…).</translation>
    </message>
    <message>
        <source>Відкриті зміни</source>
        <translation>Open shifts</translation>
    </message>
    <message>
        <source>Відкриті зміни: %1</source>
        <translation>Open shifts: %1</translation>
    </message>
    <message>
        <source>Зміни за %1</source>
        <translation>Shifts of %1</translation>
    </message>
    <message>
        <source>Зміни за %1 і відкриті</source>
        <translation>Shifts of %1 and open ones</translation>
    </message>
    <message>
        <source>Каси, не заблоковані</source>
        <translation>Registers that are not blocked</translation>
    </message>
    <message>
        <source>Магазини з огляду</source>
        <translation>The shops of the overview</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Не вдалося прочитати; показано те, що було раніше. F5 – прочитати знову.</source>
        <translation>It could not be read; what is shown was read before. F5 reads it again.</translation>
    </message>
    <message>
        <source>Прочитано о %1, далі щохвилини; F5 – зараз.</source>
        <translation>Read at %1, then each minute; F5 reads it now.</translation>
    </message>
    <message>
        <source>Магазинів: %1</source>
        <translation>Shops: %1</translation>
    </message>
    <message>
        <source>кас на зв&apos;язку: %1</source>
        <translation>registers on line: %1</translation>
    </message>
    <message>
        <source>%1 з %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>відкритих змін: %1</source>
        <translation>open shifts: %1</translation>
    </message>
    <message>
        <source>у них: %1</source>
        <translation>in them: %1</translation>
    </message>
    <message>
        <source>закрито сьогодні: %1</source>
        <translation>closed today: %1</translation>
    </message>
    <message>
        <source>тиждень тому: %1</source>
        <translation>a week ago: %1</translation>
    </message>
    <message>
        <source>Оборот за останні %1 днів</source>
        <translation>Turnover of the last %1 days</translation>
    </message>
    <message>
        <source>%1 – %2, змін: %3</source>
        <translation>%1 – %2, shifts: %3</translation>
    </message>
    <message>
        <source> (разом з відкритими)</source>
        <translation> (with the open ones)</translation>
    </message>
</context>
<context>
    <name>QPasteTable</name>
    <message>
        <source>Вставити таблицю</source>
        <translation>Paste a table</translation>
    </message>
    <message>
        <source>&amp;Таблиця: штрихкод і кількість (колонки через табуляцію або «;»)</source>
        <translation>&amp;Table: barcode and quantity (columns separated by tabs or “;”)</translation>
    </message>
    <message>
        <source>Скопіюйте дві колонки в таблиці та вставте сюди: Ctrl+V</source>
        <translation>Copy two columns of a spreadsheet and paste them here: Ctrl+V</translation>
    </message>
    <message>
        <source>Рядки таблиці</source>
        <translation>Lines of the table</translation>
    </message>
    <message>
        <source>Зберегти від&amp;мови…</source>
        <translation>Save the refuse&amp;d…</translation>
    </message>
    <message>
        <source>Файл CSV: номер запису, запис, причина</source>
        <translation>CSV file: number of the record, record, reason</translation>
    </message>
    <message>
        <source>Рядки, які не додаються</source>
        <translation>Lines that are not added</translation>
    </message>
    <message>
        <source>&amp;Додати</source>
        <translation>&amp;Add</translation>
    </message>
    <message>
        <source>&amp;Скасувати</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Зберегти файл</source>
        <translation>Save file</translation>
    </message>
    <message>
        <source>csv (*.csv)</source>
        <translation>csv (*.csv)</translation>
    </message>
    <message>
        <source>Рядок</source>
        <translation>Line</translation>
    </message>
    <message>
        <source>Штрихкод</source>
        <translation>Barcode</translation>
    </message>
    <message>
        <source>Кількість</source>
        <translation>Quantity</translation>
    </message>
    <message>
        <source>Товар</source>
        <translation>Item</translation>
    </message>
    <message>
        <source>Що буде</source>
        <translation>What happens</translation>
    </message>
    <message>
        <source>Рядок таблиці</source>
        <translation>Line of the table</translation>
    </message>
    <message>
        <source>Перевіряється…</source>
        <translation>Checking…</translation>
    </message>
    <message>
        <source>Рядки, які не додаються: %1</source>
        <translation>Lines that are not added: %1</translation>
    </message>
    <message>
        <source>Рядків: %1, додається: %2.</source>
        <translation>Lines: %1, added: %2.</translation>
    </message>
    <message>
        <source>Рядків, які не додаються: %1 з %2. Їх можна зберегти у файл.
Додати решту?</source>
        <translation>Lines that are not added: %1 of %2. They can be saved to a file.
Add the rest?</translation>
    </message>
    <message>
        <source>Додати решту</source>
        <translation>Add the rest</translation>
    </message>
    <message>
        <source>таблиця – відмови.csv</source>
        <translation>table – refused.csv</translation>
    </message>
</context>
<context>
    <name>QPayment</name>
    <message>
        <source>Оплата</source>
        <translation>Payment</translation>
    </message>
    <message>
        <source>сума по чеку:</source>
        <translation>receipt total:</translation>
    </message>
    <message>
        <source>0.00</source>
        <translation>0.00</translation>
    </message>
    <message>
        <source>знижка:</source>
        <translation>discount:</translation>
    </message>
    <message>
        <source>до оплати:</source>
        <translation>to pay:</translation>
    </message>
    <message>
        <source>оплачено:</source>
        <translation>paid:</translation>
    </message>
    <message>
        <source>&amp;готівкою:</source>
        <translation>c&amp;ash:</translation>
    </message>
    <message>
        <source>color: palette(button-text);</source>
        <translation>color: palette(button-text);</translation>
    </message>
    <message>
        <source>Залишок готівкою F5</source>
        <translation>Rest in cash F5</translation>
    </message>
    <message>
        <source>&amp;сертифікатом:</source>
        <translation>&amp;certificate:</translation>
    </message>
    <message>
        <source>Залишок сертифікатом F7</source>
        <translation>Rest by certificate F7</translation>
    </message>
    <message>
        <source>&amp;карткою:</source>
        <translation>car&amp;d:</translation>
    </message>
    <message>
        <source>Залишок карткою F6</source>
        <translation>Rest by card F6</translation>
    </message>
    <message>
        <source>&amp;отримано готівкою:</source>
        <translation>cash &amp;received:</translation>
    </message>
    <message>
        <source>решта:</source>
        <translation>change:</translation>
    </message>
    <message>
        <source>&amp;Внесення</source>
        <translation>Cash &amp;in</translation>
    </message>
    <message>
        <source>Ви&amp;лучення</source>
        <translation>Cash &amp;out</translation>
    </message>
    <message>
        <source>чеків &amp;продажу:</source>
        <translation>&amp;sale receipts:</translation>
    </message>
    <message>
        <source>чеків зі &amp;знижкою:</source>
        <translation>disco&amp;unted receipts:</translation>
    </message>
    <message>
        <source>&amp;анульованих чеків:</source>
        <translation>&amp;voided receipts:</translation>
    </message>
    <message>
        <source>анульованих по&amp;зицій:</source>
        <translation>voided i&amp;tems:</translation>
    </message>
    <message>
        <source>О&amp;платити</source>
        <translation>&amp;Pay</translation>
    </message>
    <message>
        <source>Скас&amp;увати</source>
        <translation>Cance&amp;l</translation>
    </message>
    <message>
        <source>За&amp;крити</source>
        <translation>Clos&amp;e</translation>
    </message>
    <message>
        <source>Попередження!</source>
        <translation>Warning!</translation>
    </message>
    <message>
        <source>Сума до оплати повинна дорівнювати оплачено!</source>
        <translation>The sum paid must equal the sum to pay!</translation>
    </message>
    <message>
        <source>Отримано менше, ніж треба сплатити готівкою!</source>
        <translation>Less cash was received than is to be paid in cash!</translation>
    </message>
    <message>
        <source>очікується</source>
        <translation>expected</translation>
    </message>
    <message>
        <source>пораховано</source>
        <translation>counted</translation>
    </message>
    <message>
        <source>різниця</source>
        <translation>difference</translation>
    </message>
    <message>
        <source>Очікується внесення</source>
        <translation>Expected cash in</translation>
    </message>
    <message>
        <source>Різниця внесення</source>
        <translation>Difference of the cash in</translation>
    </message>
    <message>
        <source>Очікується вилучення</source>
        <translation>Expected cash out</translation>
    </message>
    <message>
        <source>Різниця вилучення</source>
        <translation>Difference of the cash out</translation>
    </message>
    <message>
        <source>залишиться в касі:</source>
        <translation>will stay in the register:</translation>
    </message>
    <message>
        <source>&amp;готівка в касі:</source>
        <translation>&amp;cash in the drawer:</translation>
    </message>
    <message>
        <source>Очікується готівки в касі</source>
        <translation>Cash expected in the drawer</translation>
    </message>
    <message>
        <source>Різниця готівки в касі</source>
        <translation>Difference of the cash in the drawer</translation>
    </message>
    <message>
        <source>з них уже видано:</source>
        <translation>of it already issued:</translation>
    </message>
    <message>
        <source>Закрити зміну № %1</source>
        <translation>Close shift No. %1</translation>
    </message>
    <message>
        <source>Гроші покупця</source>
        <translation>The buyer&apos;s money</translation>
    </message>
    <message>
        <source>Скановано %1: у цьому вікні сканер нічого не змінює.</source>
        <translation>Scanned %1: in this window the scanner changes nothing.</translation>
    </message>
    <message>
        <source>Скановано %1: товар додають у чек до оплати.</source>
        <translation>Scanned %1: goods are put into the receipt before it is paid.</translation>
    </message>
    <message>
        <source>«%1» не є числом. Виправте його.</source>
        <translation>“%1” is not a number. Correct it.</translation>
    </message>
    <message>
        <source>Готівки пораховано %1, а має бути %2 (різниця %3).</source>
        <translation>%1 of cash was counted, %2 should be there (difference %3).</translation>
    </message>
    <message>
        <source>Вилучено більше, ніж є: в касі залишиться %1.</source>
        <translation>More is taken out than there is: %1 remains in the drawer.</translation>
    </message>
    <message>
        <source>Закрити зміну з такими сумами?</source>
        <translation>Close the shift with these sums?</translation>
    </message>
    <message>
        <source>&amp;Закрити зміну</source>
        <translation>&amp;Close the shift</translation>
    </message>
    <message>
        <source>&amp;Ні, перевірити</source>
        <translation>&amp;No, check</translation>
    </message>
    <message>
        <source>Більше, ніж до оплати.</source>
        <translation>More than is to be paid.</translation>
    </message>
</context>
<context>
    <name>QPremisGroup</name>
    <message>
        <source>Г&amp;рупи прав:</source>
        <translation>Permission &amp;groups:</translation>
    </message>
    <message>
        <source>Група</source>
        <translation>Group</translation>
    </message>
    <message>
        <source>Користувачів</source>
        <translation>Users</translation>
    </message>
    <message>
        <source>Додати &amp;групу</source>
        <translation>A&amp;dd group</translation>
    </message>
    <message>
        <source>Копі&amp;ювати групу</source>
        <translation>&amp;Copy group</translation>
    </message>
    <message>
        <source>Порі&amp;вняти з іншою…</source>
        <translation>Compare &amp;with another…</translation>
    </message>
    <message>
        <source>&amp;Назва групи:</source>
        <translation>&amp;Name of the group:</translation>
    </message>
    <message>
        <source>Показати &amp;як…</source>
        <translation>Sh&amp;ow as…</translation>
    </message>
    <message>
        <source>Які меню і команди побачить користувач цієї групи</source>
        <translation>Which menus and commands a user of this group will see</translation>
    </message>
    <message>
        <source>Що дозволено групі</source>
        <translation>What the group may do</translation>
    </message>
    <message>
        <source>Права</source>
        <translation>Rights</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>Право або меню</source>
        <translation>Right or menu</translation>
    </message>
    <message>
        <source>Права групи</source>
        <translation>Rights of the group</translation>
    </message>
    <message>
        <source>Клавіші: 0 – заборона, 1 – повний дозвіл, 2 – тільки перегляд, пробіл – наступне; на назві меню – для всього меню.</source>
        <translation>Keys: 0 – denied, 1 – full, 2 – view only, Space – the next one; on the name of a menu – for the whole menu.</translation>
    </message>
    <message>
        <source>Групи магазинів</source>
        <translation>Shop groups</translation>
    </message>
    <message>
        <source>Група бачить магазини, каси, чеки і звіти ц&amp;их груп магазинів:</source>
        <translation>The group sees the shops, registers, receipts and reports o&amp;f these shop groups:</translation>
    </message>
    <message>
        <source>Передача в магазини</source>
        <translation>Sending to shops</translation>
    </message>
    <message>
        <source>Група може передавати товари і гроші в &amp;ці магазини:</source>
        <translation>The group may send goods and mone&amp;y to these shops:</translation>
    </message>
    <message>
        <source>Усі групи</source>
        <translation>All groups</translation>
    </message>
    <message>
        <source>Скасувати з&amp;міни</source>
        <translation>&amp;Back to what is saved</translation>
    </message>
    <message>
        <source>З&amp;берегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Продовжити редагування</source>
        <translation>Go on editing</translation>
    </message>
    <message>
        <source>Видалення заборонене!!!</source>
        <translation>Deleting is forbidden!!!</translation>
    </message>
    <message>
        <source>Записується… Закрийте вкладку, коли це закінчиться.</source>
        <translation>Writing… Close the tab when this has ended.</translation>
    </message>
    <message>
        <source>Нова група</source>
        <translation>New group</translation>
    </message>
    <message>
        <source>Зміни не збережено.</source>
        <translation>The changes are not saved.</translation>
    </message>
    <message>
        <source>Зміни в групі прав &quot;%1&quot; не збережено.</source>
        <translation>The changes in the permission group “%1” are not saved.</translation>
    </message>
    <message>
        <source>Не зберігати</source>
        <translation>Do not save</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>%1 (ваша)</source>
        <translation>%1 (yours)</translation>
    </message>
    <message>
        <source>Тільки перегляд.</source>
        <translation>View only.</translation>
    </message>
    <message>
        <source>Нова група: ще не збережена.</source>
        <translation>New group: not saved yet.</translation>
    </message>
    <message>
        <source>Змінено, ще не збережено.</source>
        <translation>Changed, not saved yet.</translation>
    </message>
    <message>
        <source>%1 - копія</source>
        <translation>%1 - copy</translation>
    </message>
    <message>
        <source>Група прав з такою назвою вже є.</source>
        <translation>There is a permission group of that name already.</translation>
    </message>
    <message>
        <source>Назва не може бути пустою</source>
        <translation>The name must not be empty</translation>
    </message>
    <message>
        <source>Забрати у себе?</source>
        <translation>Take it from yourself?</translation>
    </message>
    <message>
        <source>Це ваша власна група. Ви забираєте у себе:
%1
Повернути це зможе лише хтось інший.</source>
        <translation>This is your own group. You take from yourself:
%1
Only somebody else will be able to give it back.</translation>
    </message>
    <message>
        <source>Забрати</source>
        <translation>Take away</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався під час запису, і невідомо, чи зміни збережено. Зачекайте, доки зв&apos;язок відновиться, і збережіть ще раз: програма спершу запитає сервер.</source>
        <translation>The connection broke while writing, and it is not known whether the changes were saved. Wait until the connection is back and save once more: the program asks the server first.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Групу прав &quot;%1&quot; збережено.</source>
        <translation>The permission group “%1” was saved.</translation>
    </message>
    <message>
        <source>Зберегти групу прав</source>
        <translation>Save the permission group</translation>
    </message>
    <message>
        <source>Шукати право</source>
        <translation>Search for a right</translation>
    </message>
</context>
<context>
    <name>QQestion</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>ТАК [Enter]</source>
        <translation>YES [Enter]</translation>
    </message>
    <message>
        <source>ВІДМІНИТИ [Bakspace]</source>
        <translation>CANCEL [Backspace]</translation>
    </message>
    <message>
        <source>&amp;Подробиці</source>
        <translation>&amp;Details</translation>
    </message>
    <message>
        <source>&amp;Копіювати</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>Подробиці</source>
        <translation>Details</translation>
    </message>
</context>
<context>
    <name>QQuestNameOldBD</name>
    <message>
        <source>Імпорт з попередньої версії</source>
        <translation>Import from the previous version</translation>
    </message>
    <message>
        <source>Ведіть ім&apos;я БД попередньої версії.</source>
        <translation>Enter the name of the previous version&apos;s database.</translation>
    </message>
    <message>
        <source>і м п о р т у в а т и</source>
        <translation>i m p o r t</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>&amp;Cancel</translation>
    </message>
</context>
<context>
    <name>QRegisterSale</name>
    <message>
        <source>Продаж</source>
        <translation>Sale</translation>
    </message>
    <message>
        <source>Товар «%1» не має ціни.</source>
        <translation>Goods item “%1” has no price.</translation>
    </message>
    <message>
        <source>У чеку є товари. Оплатіть або очистіть його перед закриттям зміни.</source>
        <translation>The receipt has goods. Pay or clear it before closing the shift.</translation>
    </message>
    <message>
        <source>Чек № %1, %2</source>
        <translation>Receipt No. %1, %2</translation>
    </message>
    <message>
        <source>, решта %1</source>
        <translation>, change %1</translation>
    </message>
    <message>
        <source>Код «%1» ще не в чеку. Натисніть Enter, щоб додати товар, або очистіть поле.</source>
        <translation>The code “%1” is not in the receipt yet. Press Enter to add the item, or clear the field.</translation>
    </message>
    <message>
        <source>Скановане під час запису чекає на наступний чек.</source>
        <translation>What was scanned while the receipt was written waits for the next one.</translation>
    </message>
    <message>
        <source>Магазин зайнятий!</source>
        <translation>The shop is busy!</translation>
    </message>
    <message>
        <source>Код «%1» ще не в документі. Натисніть Enter, щоб додати товар, або очистіть поле.</source>
        <translation>The code “%1” is not in the document yet. Press Enter to add the item, or clear the field.</translation>
    </message>
    <message>
        <source>Магазин ще не вибрано.</source>
        <translation>No shop is chosen yet.</translation>
    </message>
    <message>
        <source>%1 № %2: позицій %3, кількість %4</source>
        <translation>%1 No. %2: items %3, quantity %4</translation>
    </message>
    <message>
        <source>Крок назад: прибрати повідомлення, пошук, потім усе набране</source>
        <translation>A step back: clear the notice, the search, then all that was entered</translation>
    </message>
    <message>
        <source>Прийом товару</source>
        <translation>Goods received</translation>
    </message>
    <message>
        <source>Переміщення між залом і складом</source>
        <translation>Goods moved between floor and store room</translation>
    </message>
    <message>
        <source>Передача іншому магазину</source>
        <translation>Transfer to another shop</translation>
    </message>
    <message>
        <source>Оплатити чек або записати документ</source>
        <translation>Take the payment, or save the document</translation>
    </message>
    <message>
        <source>Закрити зміну</source>
        <translation>Close the shift</translation>
    </message>
    <message>
        <source>Рух готівки</source>
        <translation>Moves of cash</translation>
    </message>
    <message>
        <source>Шукати товар</source>
        <translation>Search for goods</translation>
    </message>
    <message>
        <source>Вставити таблицю товарів у документ</source>
        <translation>Paste a table of goods into the document</translation>
    </message>
</context>
<context>
    <name>QSelUser</name>
    <message>
        <source>Введіть дані користувача</source>
        <translation>Enter user data</translation>
    </message>
    <message>
        <source>&amp;Користувач:</source>
        <translation>&amp;User:</translation>
    </message>
    <message>
        <source>&amp;Пароль або картка:</source>
        <translation>&amp;Password or card:</translation>
    </message>
    <message>
        <source>Вхід к&amp;арткою</source>
        <translation>Log in by c&amp;ard</translation>
    </message>
    <message>
        <source>&amp;Запам&apos;ятати</source>
        <translation>&amp;Remember</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Не вдалося записати файл налаштувань:
%1</source>
        <translation>The settings file could not be written:
%1</translation>
    </message>
    <message>
        <source>Попередження</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Імя користувача не може бути пустим</source>
        <translation>The user name cannot be empty</translation>
    </message>
    <message>
        <source>Невірний ідентифікатор</source>
        <translation>Wrong identifier</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
</context>
<context>
    <name>QSendCash</name>
    <message>
        <source>Передача готівки до іншого магазину</source>
        <translation>Cash to another shop</translation>
    </message>
    <message>
        <source>&amp;З магазину:</source>
        <translation>&amp;From shop:</translation>
    </message>
    <message>
        <source>В&amp;зяти:</source>
        <translation>&amp;Take:</translation>
    </message>
    <message>
        <source>&amp;Операція каси:</source>
        <translation>O&amp;peration of the register:</translation>
    </message>
    <message>
        <source>&amp;До магазину:</source>
        <translation>T&amp;o shop:</translation>
    </message>
    <message>
        <source>&amp;Сума:</source>
        <translation>&amp;Sum:</translation>
    </message>
    <message>
        <source>&amp;Повідомлення:</source>
        <translation>&amp;Message:</translation>
    </message>
    <message>
        <source>Хто несе, для чого</source>
        <translation>Who carries it, what for</translation>
    </message>
    <message>
        <source>Пере&amp;дати F9</source>
        <translation>&amp;Send F9</translation>
    </message>
    <message>
        <source>Скас&amp;увати</source>
        <translation>Cance&amp;l</translation>
    </message>
    <message>
        <source>із сейфа, без каси</source>
        <translation>out of the safe, no register</translation>
    </message>
    <message>
        <source>— виберіть —</source>
        <translation>— choose —</translation>
    </message>
    <message>
        <source>Немає магазину, з якого ви можете передавати готівку.</source>
        <translation>There is no shop from which you may send cash.</translation>
    </message>
    <message>
        <source>Немає магазинів, до яких ви можете передавати готівку. Їх призначають у групах прав.</source>
        <translation>There are no shops to which you may send cash. They are given in the permission groups.</translation>
    </message>
    <message>
        <source>Виберіть магазин, до якого передається готівка.</source>
        <translation>Choose the shop to which the cash is sent.</translation>
    </message>
    <message>
        <source>Введіть суму, більшу за нуль.</source>
        <translation>Enter a sum greater than zero.</translation>
    </message>
    <message>
        <source>&amp;Передати все одно</source>
        <translation>Send &amp;all the same</translation>
    </message>
    <message>
        <source>&amp;Змінити суму</source>
        <translation>Change the &amp;sum</translation>
    </message>
</context>
<context>
    <name>QServiceCash</name>
    <message>
        <source>Службове внесення та вилучення готівки</source>
        <translation>Service cash in and out</translation>
    </message>
    <message>
        <source>&amp;Магазин:</source>
        <translation>&amp;Shop:</translation>
    </message>
    <message>
        <source>&amp;Каса:</source>
        <translation>&amp;Register:</translation>
    </message>
    <message>
        <source>&amp;Операція:</source>
        <translation>&amp;Operation:</translation>
    </message>
    <message>
        <source>&amp;Сума:</source>
        <translation>&amp;Sum:</translation>
    </message>
    <message>
        <source>&amp;Примітка:</source>
        <translation>&amp;Note:</translation>
    </message>
    <message>
        <source>Хто приніс або забрав, для чого</source>
        <translation>Who has brought or taken it, what for</translation>
    </message>
    <message>
        <source>&amp;Записати F9</source>
        <translation>&amp;Write F9</translation>
    </message>
    <message>
        <source>Скас&amp;увати</source>
        <translation>Cance&amp;l</translation>
    </message>
    <message>
        <source>⚠ Після операції буде %1: менше, ніж нуль.</source>
        <translation>⚠ After the operation there will be %1: less than nothing.</translation>
    </message>
    <message>
        <source>Після операції буде %1.</source>
        <translation>After the operation there will be %1.</translation>
    </message>
    <message>
        <source>Введіть суму, більшу за нуль.</source>
        <translation>Enter a sum greater than zero.</translation>
    </message>
    <message>
        <source>&amp;Вилучити все одно</source>
        <translation>&amp;Take out all the same</translation>
    </message>
    <message>
        <source>&amp;Змінити суму</source>
        <translation>Change the &amp;sum</translation>
    </message>
    <message>
        <source>Вікно закрито, а чи записано чек № %1, невідомо: зв&apos;язок обірвався під час запису. Перевірте його у списку чеків.</source>
        <translation>The window is closed, and it is not known whether receipt No. %1 was written: the connection broke meanwhile. Look for it in the list of receipts.</translation>
    </message>
    <message>
        <source>Внесено в касу %1, чек № %2</source>
        <translation>%1 brought into the register, receipt No. %2</translation>
    </message>
    <message>
        <source>Вилучено з каси %1, чек № %2</source>
        <translation>%1 taken out of the register, receipt No. %2</translation>
    </message>
</context>
<context>
    <name>QStatOnLine</name>
    <message>
        <source>З&amp;упинити</source>
        <translation>Stop quer&amp;y</translation>
    </message>
    <message>
        <source>&amp;шкала дня</source>
        <translation>day timeli&amp;ne</translation>
    </message>
    <message>
        <source>Статистика OnLine</source>
        <translation>On-line statistics</translation>
    </message>
    <message>
        <source>Шкала дня</source>
        <translation>Day timeline</translation>
    </message>
    <message>
        <source>Виберіть магазин</source>
        <translation>Choose a shop</translation>
    </message>
    <message>
        <source>Виберіть магазин, каси якого показати.</source>
        <translation>Choose the shop whose cash registers are to be shown.</translation>
    </message>
    <message>
        <source>Цей магазин вам недоступний.</source>
        <translation>This shop is not available to you.</translation>
    </message>
    <message>
        <source>де&amp;нь</source>
        <translation>&amp;day</translation>
    </message>
    <message>
        <source>заванта&amp;жити</source>
        <translation>lo&amp;ad</translation>
    </message>
</context>
<context>
    <name>QTab</name>
    <message>
        <source>Помилка при запиті отримання максимального розміру поля</source>
        <translation>Error when asking for the maximum size of field</translation>
    </message>
    <message>
        <source>в таблиці</source>
        <translation>in table</translation>
    </message>
    <message>
        <source>Помилка запиту.</source>
        <translation>Query error.</translation>
    </message>
    <message>
        <source>За цими умовами нічого не знайдено.</source>
        <translation>Nothing matches these conditions.</translation>
    </message>
    <message>
        <source>Повне оновлення таблиці</source>
        <translation>Full refresh of the table</translation>
    </message>
    <message>
        <source>Оновлення одного запису id=</source>
        <translation>Refresh of one record id=</translation>
    </message>
    <message>
        <source>Помилка при зчитуванні запису.</source>
        <translation>Error when reading the record.</translation>
    </message>
    <message>
        <source>Запис не знайдено в базі!</source>
        <translation>The record is not found in the database!</translation>
    </message>
    <message>
        <source>Зміни не внесені, відмінено користувачем!</source>
        <translation>No changes made, cancelled by the user!</translation>
    </message>
    <message>
        <source>Запис не додано, відмінено користувачем!</source>
        <translation>The record is not added, cancelled by the user!</translation>
    </message>
    <message>
        <source>Редактор закрито, а чи записано зміни, невідомо: зв&apos;язок обірвався під час запису. Перевірте запис у списку.</source>
        <translation>The editor was closed, and it is not known whether the changes were written: the connection broke while writing. Check the record in the list.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Видалення заборонене!!!</source>
        <translation>Deletion is forbidden!!!</translation>
    </message>
    <message>
        <source>Закрити без збереження</source>
        <translation>Close without saving</translation>
    </message>
    <message>
        <source>Продовжити редагування</source>
        <translation>Go on editing</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
    <message>
        <source>Записується… Закрийте вкладку, коли це закінчиться.</source>
        <translation>Writing… Close the tab when this has ended.</translation>
    </message>
    <message>
        <source>Набране не збережено.</source>
        <translation>What was typed is not saved.</translation>
    </message>
    <message>
        <source>Набране в списку ще не записано.</source>
        <translation>What was typed in the list has not been stored yet.</translation>
    </message>
    <message>
        <source>Немає записів</source>
        <translation>No records</translation>
    </message>
    <message>
        <source>Спершу закінчіть набране: Enter записує, Esc скасовує.</source>
        <translation>Finish what you are typing first: Enter saves it, Esc drops it.</translation>
    </message>
    <message>
        <source>У списку: відкрити рядок</source>
        <translation>In the list: open the line</translation>
    </message>
    <message>
        <source>У полі пошуку: до списку</source>
        <translation>In the search field: to the list</translation>
    </message>
    <message>
        <source>У полі пошуку: очистити його</source>
        <translation>In the search field: clear it</translation>
    </message>
    <message>
        <source>У рядку, який редагується: записати</source>
        <translation>In a line that is edited: save it</translation>
    </message>
    <message>
        <source>У рядку, який редагується: скасувати набране</source>
        <translation>In a line that is edited: drop what was typed</translation>
    </message>
</context>
<context>
    <name>QTabActions</name>
    <message>
        <source>«Без акції» потрібна самим програмам: її мають товари, на які акції немає. Змінити або видалити її не можна.</source>
        <translation>“Без акції” belongs to the programs: goods without a promotion have it. It cannot be changed or deleted.</translation>
    </message>
    <message>
        <source>без знижки</source>
        <translation>no discount</translation>
    </message>
    <message>
        <source>Назва</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Тип</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Знижка, %</source>
        <translation>Discount, %</translation>
    </message>
    <message>
        <source>Стан</source>
        <translation>State</translation>
    </message>
    <message>
        <source>Початок</source>
        <translation>First day</translation>
    </message>
    <message>
        <source>Закінчення</source>
        <translation>Last day</translation>
    </message>
    <message>
        <source>Щоденні години</source>
        <translation>Daily hours</translation>
    </message>
    <message>
        <source>Дні тижня</source>
        <translation>Days of the week</translation>
    </message>
    <message>
        <source>Товарів</source>
        <translation>Goods</translation>
    </message>
    <message>
        <source>Магазинів</source>
        <translation>Shops</translation>
    </message>
    <message>
        <source>Назва або тип</source>
        <translation>Name or type</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Виберіть у списку акцію, яку треба видалити.</source>
        <translation>Choose in the list the promotion that is to be deleted.</translation>
    </message>
    <message>
        <source>Видалення акції</source>
        <translation>Deleting a promotion</translation>
    </message>
    <message>
        <source>Видалити акцію «%1»? Повернути її буде не можна.</source>
        <translation>Delete the promotion “%1”? It cannot be brought back.</translation>
    </message>
    <message>
        <source>Видалити</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Акцію «%1» видалено.</source>
        <translation>The promotion “%1” was deleted.</translation>
    </message>
    <message>
        <source>Акцію «%1» видалити не можна: її призначено (%2).

%3

Спершу зніміть її з товарів у вкладці &quot;Управління акціями&quot;.</source>
        <translation>The promotion “%1” cannot be deleted: it is assigned (%2).

%3

Take it off the goods in “Promotion management” first.</translation>
    </message>
    <message>
        <source>Цю акцію вже видалив хтось інший.</source>
        <translation>Somebody else has deleted this promotion already.</translation>
    </message>
    <message>
        <source>Поки ви вирішували, акцію змінив хтось інший. Її не видалено: перегляньте її ще раз.</source>
        <translation>While you decided, somebody else has changed the promotion. It was not deleted: look at it once more.</translation>
    </message>
    <message>
        <source>Акцію не видалено: у вас тепер є право лише переглядати.</source>
        <translation>The promotion was not deleted: by now you may only view.</translation>
    </message>
</context>
<context>
    <name>QTabClients</name>
    <message>
        <source>Код карточки</source>
        <translation>Card code</translation>
    </message>
    <message>
        <source>Знижка</source>
        <translation>Discount</translation>
    </message>
    <message>
        <source>Сума бонусів</source>
        <translation>Bonus sum</translation>
    </message>
    <message>
        <source>Сума покупок</source>
        <translation>Purchases</translation>
    </message>
    <message>
        <source>Карточка бонунса/на знижку</source>
        <translation>Bonus/discount card</translation>
    </message>
    <message>
        <source>Фіксована знижка</source>
        <translation>Fixed discount</translation>
    </message>
    <message>
        <source>Група</source>
        <translation>Group</translation>
    </message>
    <message>
        <source>Ім&apos;я</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Телефон</source>
        <translation>Telephone</translation>
    </message>
    <message>
        <source>E-MAIL</source>
        <translation>E-MAIL</translation>
    </message>
    <message>
        <source>Дата народження</source>
        <translation>Birthday</translation>
    </message>
    <message>
        <source>Блокування</source>
        <translation>Blocked</translation>
    </message>
    <message>
        <source>Інфо</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Передача в CashDrive</source>
        <translation>Exchange with CashDrive</translation>
    </message>
    <message>
        <source>Кількість записів</source>
        <translation>Number of records</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Кількість записів невідома</source>
        <translation>Number of records unknown</translation>
    </message>
    <message>
        <source>Повне оновлення таблиці</source>
        <translation>Full refresh of the table</translation>
    </message>
</context>
<context>
    <name>QTabClientsFilter</name>
    <message>
        <source>Код &amp;карточки:</source>
        <translation>Card &amp;code:</translation>
    </message>
    <message>
        <source>Цифри коду</source>
        <translation>Digits of the code</translation>
    </message>
    <message>
        <source>&amp;Ім&apos;я або телефон:</source>
        <translation>&amp;Name or telephone:</translation>
    </message>
    <message>
        <source>Карточки шукають за кодом, ім&apos;ям або телефоном.</source>
        <translation>Cards are searched by code, name or telephone.</translation>
    </message>
    <message>
        <source>Фільтр</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Чеки картки</source>
        <translation>Receipts of the card</translation>
    </message>
</context>
<context>
    <name>QTabDelegate</name>
    <message>
        <source>Назва</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Поле не може бути пустим.</source>
        <translation>The field cannot be empty.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Такий запис вже існує в базі!</source>
        <translation>This record already exists in the database!</translation>
    </message>
    <message>
        <source>Помилка оновлення запису.</source>
        <translation>Error when updating the record.</translation>
    </message>
    <message>
        <source>Код %1 вже зайнятий. Введіть інший або залиште його порожнім.</source>
        <translation>Code %1 is taken. Enter another one or leave it empty.</translation>
    </message>
    <message>
        <source>Поки ви редагували, назву змінили на «%1». Натисніть Enter ще раз, щоб записати свою, або Esc, щоб залишити цю.</source>
        <translation>While you were editing, the name was changed to «%1». Press Enter again to store yours, or Esc to leave this one.</translation>
    </message>
    <message>
        <source>Не збережено набране далі: «%1».</source>
        <translation>What was typed next is not saved: «%1».</translation>
    </message>
    <message>
        <source>Інші програми саме додають сюди записи. Натисніть Enter ще раз.</source>
        <translation>Other programs are adding records here right now. Press Enter once more.</translation>
    </message>
</context>
<context>
    <name>QTabDiscount</name>
    <message>
        <source>Назва</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Знижка</source>
        <translation>Discount</translation>
    </message>
    <message>
        <source>Сума після якої діє знижка</source>
        <translation>Purchases that lead to the discount</translation>
    </message>
    <message>
        <source>Авто</source>
        <translation>Automatic</translation>
    </message>
    <message>
        <source>Блокування</source>
        <translation>Blocked</translation>
    </message>
</context>
<context>
    <name>QTabGoods</name>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Штрихкод</source>
        <translation>Barcode</translation>
    </message>
    <message>
        <source>Назва товару</source>
        <translation>Name of the goods item</translation>
    </message>
    <message>
        <source>Ціна</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>Тип товару</source>
        <translation>Item type</translation>
    </message>
    <message>
        <source>Група</source>
        <translation>Group</translation>
    </message>
    <message>
        <source>Податкова група</source>
        <translation>Tax group</translation>
    </message>
    <message>
        <source>Знижка/Бонус</source>
        <translation>Discount/Bonus</translation>
    </message>
    <message>
        <source>Блокування</source>
        <translation>Blocked</translation>
    </message>
    <message>
        <source>Всі групи</source>
        <translation>All groups</translation>
    </message>
</context>
<context>
    <name>QTabGoodsFilter</name>
    <message>
        <source>&amp;Група:</source>
        <translation>&amp;Group:</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>Штрихкод, назва або код товару</source>
        <translation>Barcode, name or code of a goods item</translation>
    </message>
    <message>
        <source>Гр&amp;упувати по коду</source>
        <translation>Group by &amp;code</translation>
    </message>
    <message>
        <source>&amp;Чому така ціна</source>
        <translation>&amp;Why this price</translation>
    </message>
</context>
<context>
    <name>QTabGoodsShops</name>
    <message>
        <source>Назва магазину</source>
        <translation>Shop name</translation>
    </message>
    <message>
        <source>Назва товару</source>
        <translation>Name of the goods item</translation>
    </message>
    <message>
        <source>Кількість в торговому залі</source>
        <translation>Quantity on the sales floor</translation>
    </message>
    <message>
        <source>Кількість на складі</source>
        <translation>Quantity in stock</translation>
    </message>
    <message>
        <source>Всі магазини</source>
        <translation>All shops</translation>
    </message>
    <message>
        <source>Залишки змінюють продаж, прийом і переміщення. Новий товар магазину додайте у вкладці &quot;Товари&quot;: список &quot;Продається в магазинах&quot;.</source>
        <translation>Stock is changed by sales, receipts and movements. Add a new item of a shop in the tab &quot;Goods&quot;: the list &quot;Sold in shops&quot;.</translation>
    </message>
</context>
<context>
    <name>QTabGoodsShopsFilter</name>
    <message>
        <source>&amp;Магазин:</source>
        <translation>&amp;Shop:</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>Назва товару або магазину</source>
        <translation>Name of a goods item or a shop</translation>
    </message>
    <message>
        <source>&amp;Чому така ціна</source>
        <translation>&amp;Why this price</translation>
    </message>
</context>
<context>
    <name>QTabGroup_Shops</name>
    <message>
        <source>Повідомлення</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Показати &amp;нам</source>
        <translation>&amp;Show them to us</translation>
    </message>
    <message>
        <source>Не за&amp;раз</source>
        <translation>Not n&amp;ow</translation>
    </message>
    <message>
        <source>Нових груп магазинів (%1) ще ніхто не бачить. Показати їх вашій групі прав?</source>
        <translation>Nobody sees the new shop groups (%1) yet. Show them to your permission group?</translation>
    </message>
</context>
<context>
    <name>QTabJournal</name>
    <message>
        <source>Це записи кас: їх не додають і не змінюють.</source>
        <translation>These are records of the registers: nobody adds or changes them.</translation>
    </message>
    <message>
        <source>По %1 рядків: більше в один список не вміщається.</source>
        <translation>%1 rows each: a list holds no more.</translation>
    </message>
</context>
<context>
    <name>QTabJournalFilter</name>
    <message>
        <source>Номер</source>
        <translation>Number</translation>
    </message>
    <message>
        <source>Зупинити</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>&amp;Лише за дні:</source>
        <translation>On&amp;ly days:</translation>
    </message>
</context>
<context>
    <name>QTabKass</name>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Адреса магазину</source>
        <translation>Shop address</translation>
    </message>
    <message>
        <source>Рекламний рядок</source>
        <translation>Advertising line</translation>
    </message>
    <message>
        <source>IP адреса</source>
        <translation>IP address</translation>
    </message>
    <message>
        <source>Тип пристрою</source>
        <translation>Device type</translation>
    </message>
    <message>
        <source>Блок</source>
        <translation>Blocked</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Тип пристрою не вказано: програми для нього не запускаються.</source>
        <translation>The type of the device is not given: no programs are started for it.</translation>
    </message>
</context>
<context>
    <name>QTabKassFilter</name>
    <message>
        <source>&amp;Група:</source>
        <translation>&amp;Group:</translation>
    </message>
    <message>
        <source>&amp;Магазин:</source>
        <translation>&amp;Shop:</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>Адреса магазину</source>
        <translation>Shop address</translation>
    </message>
</context>
<context>
    <name>QTabNames</name>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Назва групи</source>
        <translation>Group name</translation>
    </message>
    <message>
        <source>Групи з кодами 2–5 службові: їх товари не продаються в бек-офісі, а їх продажі на касах автодозвін не записує. Нова група отримує код від 6; щоб ввести код самому, натисніть Shift+Tab у її назві.</source>
        <translation>Groups with the codes 2–5 are service groups: their goods are not sold in the back office, and the exchange does not record their sales on registers. A new group gets a code from 6 on; to enter a code yourself, press Shift+Tab in its name.</translation>
    </message>
    <message>
        <source>День оновлення</source>
        <translation>Update day</translation>
    </message>
    <message>
        <source>Тип транзакції</source>
        <translation>Transaction type</translation>
    </message>
    <message>
        <source>Типи транзакцій однакові в усіх програмах мережі: їх не додають і не змінюють.</source>
        <translation>The transaction types are the same in all programs of the chain: they are neither added nor changed.</translation>
    </message>
</context>
<context>
    <name>QTabOnLine</name>
    <message>
        <source>Усі групи</source>
        <translation>All groups</translation>
    </message>
    <message>
        <source>Те саме, що потягти рядок мишею праворуч</source>
        <translation>The same as dragging the line to the right</translation>
    </message>
    <message>
        <source>Запустити програму для рядка</source>
        <translation>Start a program for the line</translation>
    </message>
</context>
<context>
    <name>QTabShops</name>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Адреса магазину</source>
        <translation>Shop address</translation>
    </message>
    <message>
        <source>Назва магазину</source>
        <translation>Shop name</translation>
    </message>
    <message>
        <source>Шлюз</source>
        <translation>Gateway</translation>
    </message>
    <message>
        <source>Блок</source>
        <translation>Blocked</translation>
    </message>
</context>
<context>
    <name>QTabShopsFilter</name>
    <message>
        <source>&amp;Група:</source>
        <translation>&amp;Group:</translation>
    </message>
    <message>
        <source>Показати всі</source>
        <translation>Show all</translation>
    </message>
    <message>
        <source>Показати діючі</source>
        <translation>Show active</translation>
    </message>
    <message>
        <source>Показати заблоковані</source>
        <translation>Show blocked</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>Адреса або назва магазину</source>
        <translation>Address or name of a shop</translation>
    </message>
    <message>
        <source>Ста&amp;н:</source>
        <translation>&amp;State:</translation>
    </message>
</context>
<context>
    <name>QTabSlujbOp</name>
    <message>
        <source>Внесення</source>
        <translation>Cash in</translation>
    </message>
    <message>
        <source>Вилучення</source>
        <translation>Cash out</translation>
    </message>
    <message>
        <source>Назва операції</source>
        <translation>Operation name</translation>
    </message>
    <message>
        <source>вилучення / внесення</source>
        <translation>cash out / cash in</translation>
    </message>
</context>
<context>
    <name>QTabTax</name>
    <message>
        <source>Податкових груп завжди п&apos;ять: їх не додають і не вилучають, змінюють лише ставки та назви зборів.</source>
        <translation>There are always five tax groups: they are neither added nor removed, only rates and levy names are changed.</translation>
    </message>
    <message>
        <source>Назва податку</source>
        <translation>Tax name</translation>
    </message>
    <message>
        <source>Ставка податку %</source>
        <translation>Tax rate %</translation>
    </message>
    <message>
        <source>Назва додаткового збору</source>
        <translation>Levy name</translation>
    </message>
    <message>
        <source>Ставка додаткового збору %</source>
        <translation>Levy rate %</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Податкових груп немає. Їх створює команда &quot;Створити таблиці&quot;.</source>
        <translation>There are no tax groups. The command &quot;Create tables&quot; creates them.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Помилка запиту</source>
        <translation>Query error</translation>
    </message>
    <message>
        <source>назва податку або збору</source>
        <translation>tax or levy name</translation>
    </message>
</context>
<context>
    <name>QTabTaxDelegate</name>
    <message>
        <source>Назва</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Змінити ставку?</source>
        <translation>Change the rate?</translation>
    </message>
    <message>
        <source>%1: %2 → %3.
За новою ставкою рахуватимуться касові зміни, відкриті після цього. Уже відкриті зберігають попередню.</source>
        <translation>%1: %2 → %3.
Shifts opened from now on will be reckoned by the new rate. Shifts that are open already keep the old one.</translation>
    </message>
    <message>
        <source>Змінити ставку</source>
        <translation>Change the rate</translation>
    </message>
    <message>
        <source>Продовжити редагування</source>
        <translation>Go on editing</translation>
    </message>
</context>
<context>
    <name>QTabTransaction</name>
    <message>
        <source>готівкою</source>
        <translation>in cash</translation>
    </message>
    <message>
        <source>карткою</source>
        <translation>by card</translation>
    </message>
    <message>
        <source>сертифікатом</source>
        <translation>by certificate</translation>
    </message>
    <message>
        <source>інакше</source>
        <translation>otherwise</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Каса</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>Зміна №</source>
        <translation>Shift №</translation>
    </message>
    <message>
        <source>Чек №</source>
        <translation>Receipt №</translation>
    </message>
    <message>
        <source>Позиція в чеку</source>
        <translation>Line in the receipt</translation>
    </message>
    <message>
        <source>Тип транзакції</source>
        <translation>Transaction type</translation>
    </message>
    <message>
        <source>Товар/Клієнт/Операція</source>
        <translation>Item/Client/Operation</translation>
    </message>
    <message>
        <source>Кількість</source>
        <translation>Quantity</translation>
    </message>
    <message>
        <source>Ціна</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>Сума</source>
        <translation>Sum</translation>
    </message>
    <message>
        <source>Податкова група</source>
        <translation>Tax group</translation>
    </message>
    <message>
        <source>Податок</source>
        <translation>Tax</translation>
    </message>
    <message>
        <source>Записів усієї мережі забагато для одного списку: виберіть магазин або дні.</source>
        <translation>The records of the whole chain are too many for one list: choose a shop or days.</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>&amp;Чек №:</source>
        <translation>Re&amp;ceipt №:</translation>
    </message>
</context>
<context>
    <name>QTabUsers</name>
    <message>
        <source>дозволено</source>
        <translation>allowed</translation>
    </message>
    <message>
        <source>закрито</source>
        <translation>closed</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Логін</source>
        <translation>Login</translation>
    </message>
    <message>
        <source>Прізвище</source>
        <translation>Surname</translation>
    </message>
    <message>
        <source>Ім&apos;я</source>
        <translation>First name</translation>
    </message>
    <message>
        <source>По батькові</source>
        <translation>Patronymic</translation>
    </message>
    <message>
        <source>Група прав</source>
        <translation>Permission group</translation>
    </message>
    <message>
        <source>Вхід</source>
        <translation>Entry</translation>
    </message>
    <message>
        <source>Телефон</source>
        <translation>Telephone</translation>
    </message>
    <message>
        <source>Група магазинів</source>
        <translation>Shop group</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Ключ картки</source>
        <translation>Card key</translation>
    </message>
    <message>
        <source>Усі</source>
        <translation>All</translation>
    </message>
    <message>
        <source>Вхід дозволено</source>
        <translation>Entry allowed</translation>
    </message>
    <message>
        <source>Вхід закрито</source>
        <translation>Entry closed</translation>
    </message>
    <message>
        <source>&amp;Друкувати…</source>
        <translation>&amp;Print…</translation>
    </message>
    <message>
        <source>Зберегти в &amp;PDF…</source>
        <translation>Save as P&amp;DF…</translation>
    </message>
    <message>
        <source>Група прав не дає входу до бекофісу.</source>
        <translation>The permission group gives no entry to the back office.</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Без картки лишаються:
%1
Відкрийте запис і дайте новий ключ кнопкою «Запропонувати».</source>
        <translation>These remain without a card:
%1
Open the record and give a new key by the button “Suggest”.</translation>
    </message>
    <message>
        <source>Виберіть у списку, чиї картки потрібні.</source>
        <translation>Choose in the list whose cards are needed.</translation>
    </message>
    <message>
        <source>Картка</source>
        <translation>Card</translation>
    </message>
    <message>
        <source>Картки</source>
        <translation>Cards</translation>
    </message>
</context>
<context>
    <name>QTabUsersFilter</name>
    <message>
        <source>&amp;Група прав:</source>
        <translation>Permission &amp;group:</translation>
    </message>
    <message>
        <source>&amp;Вхід:</source>
        <translation>E&amp;ntry:</translation>
    </message>
    <message>
        <source>По&amp;шук:</source>
        <translation>Se&amp;arch:</translation>
    </message>
    <message>
        <source>логін, ім&apos;я, телефон</source>
        <translation>login, name, telephone</translation>
    </message>
    <message>
        <source>Ка&amp;ртка</source>
        <translation>&amp;Card</translation>
    </message>
    <message>
        <source>Картки вибраних користувачів</source>
        <translation>The cards of the selected users</translation>
    </message>
</context>
<context>
    <name>QTabZZvit</name>
    <message>
        <source>відкрита</source>
        <translation>open</translation>
    </message>
    <message>
        <source>Звіт №</source>
        <translation>Report №</translation>
    </message>
    <message>
        <source>Магазин</source>
        <translation>Shop</translation>
    </message>
    <message>
        <source>Каса</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>Оборот</source>
        <translation>Turnover</translation>
    </message>
    <message>
        <source>Готівкою</source>
        <translation>Cash</translation>
    </message>
    <message>
        <source>Безготівка1</source>
        <translation>Non-cash 1</translation>
    </message>
    <message>
        <source>Безготівка2</source>
        <translation>Non-cash 2</translation>
    </message>
    <message>
        <source>Безготівка3</source>
        <translation>Non-cash 3</translation>
    </message>
    <message>
        <source>Чеків</source>
        <translation>Receipts</translation>
    </message>
    <message>
        <source>Чеків повернення</source>
        <translation>Return receipts</translation>
    </message>
    <message>
        <source>Чеків зі знижкою</source>
        <translation>Discounted receipts</translation>
    </message>
    <message>
        <source>Позицій анульовано</source>
        <translation>Cancelled lines</translation>
    </message>
    <message>
        <source>Чеків анульовано</source>
        <translation>Cancelled receipts</translation>
    </message>
    <message>
        <source>Сума знижки</source>
        <translation>Discount</translation>
    </message>
    <message>
        <source>Внесення</source>
        <translation>Cash in</translation>
    </message>
    <message>
        <source>Вилучення</source>
        <translation>Cash out</translation>
    </message>
    <message>
        <source>Дата та час</source>
        <translation>Date and time</translation>
    </message>
    <message>
        <source>Зв&amp;іт №:</source>
        <translation>Rep&amp;ort №:</translation>
    </message>
</context>
<context>
    <name>QTableBase</name>
    <message>
        <source>Помилка створення таблиці</source>
        <translation>Error when creating table</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Зачекайте. Створюються таблиці.</source>
        <translation>Wait. The tables are being created.</translation>
    </message>
    <message>
        <source>Перезавантажте програму!</source>
        <translation>Restart the program!</translation>
    </message>
    <message>
        <source>Помилка ініціалізації таблиці</source>
        <translation>Error when initialising table</translation>
    </message>
    <message>
        <source>&apos;Ні&apos;</source>
        <translation>&apos;No&apos;</translation>
    </message>
    <message>
        <source>&apos;Так&apos;</source>
        <translation>&apos;Yes&apos;</translation>
    </message>
    <message>
        <source>&apos;Знижка&apos;</source>
        <translation>&apos;Discount&apos;</translation>
    </message>
    <message>
        <source>&apos;Бонус&apos;</source>
        <translation>&apos;Bonus&apos;</translation>
    </message>
    <message>
        <source>&apos;Ваговий&apos;</source>
        <translation>&apos;By weight&apos;</translation>
    </message>
    <message>
        <source>&apos;Штучний&apos;</source>
        <translation>&apos;By piece&apos;</translation>
    </message>
</context>
<context>
    <name>QUpdateBD</name>
    <message>
        <source>Немає даних після запиту</source>
        <translation>No data after the query</translation>
    </message>
    <message>
        <source>Створіть таблиці та перезапустіть програму.Не знайдено таблицю</source>
        <translation>Create the tables and restart the program. Table not found:</translation>
    </message>
    <message>
        <source>Помилка оновлення запису в таблиці</source>
        <translation>Error when updating a record in table</translation>
    </message>
    <message>
        <source>Помилка запиту на здійснене оновленя таблиці.</source>
        <translation>Error in the query for the last update of the table.</translation>
    </message>
</context>
<context>
    <name>QWhyPrice</name>
    <message>
        <source>Чому така ціна</source>
        <translation>Why this price</translation>
    </message>
    <message>
        <source>&amp;Магазин:</source>
        <translation>&amp;Shop:</translation>
    </message>
    <message>
        <source>&amp;Дата і час:</source>
        <translation>&amp;Date and time:</translation>
    </message>
    <message>
        <source>Пріоритет &amp;ціни:</source>
        <translation>&amp;Price priority:</translation>
    </message>
    <message>
        <source>Ціна</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>Ціни товару за чергою</source>
        <translation>Prices of the item in their order</translation>
    </message>
    <message>
        <source>&amp;Оновити</source>
        <translation>&amp;Refresh</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
    <message>
        <source>&amp;Копіювати</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>Усе, що показано, як текст (Ctrl+C у таблиці)</source>
        <translation>All that is shown, as text (Ctrl+C in the table)</translation>
    </message>
    <message>
        <source>&amp;Закрити</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Звідки ціна</source>
        <translation>Where the price comes from</translation>
    </message>
    <message>
        <source>Пріоритет</source>
        <translation>Priority</translation>
    </message>
    <message>
        <source>Чому</source>
        <translation>Why</translation>
    </message>
    <message>
        <source>Магазини не прочитано: сервер не відповів. Натисніть «Оновити» (F5).</source>
        <translation>The shops were not read: the server did not answer. Press “Refresh” (F5).</translation>
    </message>
    <message>
        <source>Магазин № %1</source>
        <translation>Shop No. %1</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>Не прочитано: сервер не відповів. Натисніть «Оновити» (F5).</source>
        <translation>Not read: the server did not answer. Press “Refresh” (F5).</translation>
    </message>
    <message>
        <source>Товару № %1 вже немає.</source>
        <translation>Item No. %1 is gone.</translation>
    </message>
    <message>
        <source>%1 (код %2)</source>
        <translation>%1 (code %2)</translation>
    </message>
</context>
<context>
    <name>QZReport</name>
    <message>
        <source>&amp;ліміт</source>
        <translation>&amp;limit</translation>
    </message>
    <message>
        <source>Скільки звітів показати щонайбільше; порожньо – усі</source>
        <translation>How many reports to show at most; empty: all</translation>
    </message>
    <message>
        <source>підс&amp;умувати</source>
        <translation>summari&amp;ze</translation>
    </message>
    <message>
        <source>Z - Звіти</source>
        <translation>Z-reports</translation>
    </message>
    <message>
        <source>Діаграма продажу</source>
        <translation>Sales turnover chart</translation>
    </message>
    <message>
        <source>Що показує діаграма</source>
        <translation>What the chart shows</translation>
    </message>
    <message>
        <source>по днях</source>
        <translation>by days</translation>
    </message>
    <message>
        <source>по магазинах</source>
        <translation>by shops</translation>
    </message>
    <message>
        <source>Z-звіт</source>
        <translation>Z-report</translation>
    </message>
    <message>
        <source>магазин</source>
        <translation>shop</translation>
    </message>
    <message>
        <source>каса</source>
        <translation>cash register</translation>
    </message>
    <message>
        <source>продаж</source>
        <translation>sale</translation>
    </message>
    <message>
        <source>Оплата готівкою</source>
        <translation>Paid in cash</translation>
    </message>
    <message>
        <source>безготівкою</source>
        <translation>cashless</translation>
    </message>
    <message>
        <source>Звіт чеків</source>
        <translation>Receipts</translation>
    </message>
    <message>
        <source>знижка</source>
        <translation>discount</translation>
    </message>
    <message>
        <source>чеків зі знижкою</source>
        <translation>discounted receipts</translation>
    </message>
    <message>
        <source>позицій анульовано</source>
        <translation>items voided</translation>
    </message>
    <message>
        <source>повернення</source>
        <translation>return</translation>
    </message>
    <message>
        <source>податок</source>
        <translation>tax</translation>
    </message>
    <message>
        <source>дата час</source>
        <translation>date time</translation>
    </message>
    <message>
        <source>не більше %1</source>
        <translation>at most %1</translation>
    </message>
    <message>
        <source>Звітів: %1</source>
        <translation>Reports: %1</translation>
    </message>
    <message>
        <source>заванта&amp;жити</source>
        <translation>lo&amp;ad</translation>
    </message>
    <message>
        <source>зупи&amp;нити</source>
        <translation>st&amp;op</translation>
    </message>
    <message>
        <source>Діаг&amp;рама продажу</source>
        <translation>Sales &amp;chart</translation>
    </message>
    <message>
        <source>закр&amp;иті</source>
        <translation>close&amp;d</translation>
    </message>
    <message>
        <source>Закриті зміни та їх Z-звіти</source>
        <translation>Closed shifts and their Z-reports</translation>
    </message>
    <message>
        <source>Закриті зміни</source>
        <translation>Closed shifts</translation>
    </message>
    <message>
        <source>відкриті</source>
        <translation>open</translation>
    </message>
    <message>
        <source>Відкриті зміни: що зараз на касах, продаж і готівка</source>
        <translation>Open shifts: what goes on at the registers, sales and cash</translation>
    </message>
    <message>
        <source>Відкриті зміни</source>
        <translation>Open shifts</translation>
    </message>
</context>
<context>
    <name>QuantityDelegate</name>
    <message>
        <source>Кількість</source>
        <translation>Quantity</translation>
    </message>
</context>
<context>
    <name>QuantityGrid</name>
    <message>
        <source>«%1» не є кількістю.</source>
        <translation>“%1” is not a quantity.</translation>
    </message>
    <message>
        <source>Одиницею товару більше</source>
        <translation>One unit more</translation>
    </message>
    <message>
        <source>Одиницею товару менше</source>
        <translation>One unit less</translation>
    </message>
    <message>
        <source>Змінити кількість</source>
        <translation>Change the quantity</translation>
    </message>
    <message>
        <source>Прибрати рядок товару</source>
        <translation>Remove the line</translation>
    </message>
</context>
<context>
    <name>QueryService</name>
    <message>
        <source>Немає зв&apos;язку з базою даних.</source>
        <translation>No connection to the database.</translation>
    </message>
</context>
<context>
    <name>RangeSelector</name>
    <message>
        <source>&amp;від</source>
        <translation>fr&amp;om</translation>
    </message>
    <message>
        <source>Проміжок днів</source>
        <translation>Range of days</translation>
    </message>
    <message>
        <source>Дні…</source>
        <translation>Days…</translation>
    </message>
    <message>
        <source>Сьогодні</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>Вчора</source>
        <translation>Yesterday</translation>
    </message>
    <message>
        <source>Цей тиждень</source>
        <translation>This week</translation>
    </message>
    <message>
        <source>Останні 7 днів</source>
        <translation>Last 7 days</translation>
    </message>
    <message>
        <source>Цей місяць</source>
        <translation>This month</translation>
    </message>
    <message>
        <source>Минулий місяць</source>
        <translation>Last month</translation>
    </message>
    <message>
        <source>Введіть номери змін: від і до.</source>
        <translation>Enter the shift numbers: from and to.</translation>
    </message>
    <message>
        <source>Початковий номер зміни більший за кінцевий.</source>
        <translation>The first shift number is greater than the last one.</translation>
    </message>
    <message>
        <source>Початкова дата пізніша за кінцеву.</source>
        <translation>The first date is later than the last one.</translation>
    </message>
    <message>
        <source>зміни %1 – %2</source>
        <translation>shifts %1 – %2</translation>
    </message>
    <message>
        <source>по зміна&amp;х</source>
        <translation>&amp;by shifts</translation>
    </message>
    <message>
        <source>до</source>
        <translation>to</translation>
    </message>
</context>
<context>
    <name>Receipt</name>
    <message>
        <source>Кількість товару «%1» повинна бути більша за нуль.</source>
        <translation>The quantity of goods item “%1” must be greater than zero.</translation>
    </message>
    <message>
        <source>Товар «%1» продається цілими одиницями.</source>
        <translation>Goods item “%1” is sold in whole units.</translation>
    </message>
    <message>
        <source>Товар «%1» не має ціни.</source>
        <translation>Goods item “%1” has no price.</translation>
    </message>
    <message>
        <source>Вартість товару «%1» завелика для одного чека.</source>
        <translation>The value of goods item “%1” is too large for one receipt.</translation>
    </message>
    <message>
        <source>У чеку немає товарів.</source>
        <translation>The receipt has no goods.</translation>
    </message>
    <message>
        <source>Сума завелика для одного чека.</source>
        <translation>The total is too large for one receipt.</translation>
    </message>
    <message>
        <source>Знижка більша за суму чека.</source>
        <translation>The discount is greater than the receipt total.</translation>
    </message>
    <message>
        <source>Знижка більша за вартість товарів, на які вона дозволена.</source>
        <translation>The discount is greater than the value of the goods for which it is allowed.</translation>
    </message>
    <message>
        <source>%1 (без знижки)</source>
        <translation>%1 (no discount)</translation>
    </message>
</context>
<context>
    <name>ReceiptModel</name>
    <message>
        <source> код </source>
        <translation> code </translation>
    </message>
    <message>
        <source>   штрихкод   </source>
        <translation>   barcode   </translation>
    </message>
    <message>
        <source>        назва        </source>
        <translation>        name        </translation>
    </message>
    <message>
        <source>зал</source>
        <translation>floor</translation>
    </message>
    <message>
        <source>склад</source>
        <translation>stock</translation>
    </message>
    <message>
        <source>кількість</source>
        <translation>quantity</translation>
    </message>
    <message>
        <source>акція</source>
        <translation>promotion</translation>
    </message>
    <message>
        <source>  ціна  </source>
        <translation>  price  </translation>
    </message>
    <message>
        <source>  вартість  </source>
        <translation>  value  </translation>
    </message>
    <message>
        <source>Знижка</source>
        <translation>Discount</translation>
    </message>
</context>
<context>
    <name>ReceiptPane</name>
    <message>
        <source>Чек</source>
        <translation>Receipt</translation>
    </message>
    <message>
        <source>Видалити р&amp;ядок</source>
        <translation>Remove ro&amp;w</translation>
    </message>
    <message>
        <source>Очистити &amp;чек</source>
        <translation>Cle&amp;ar receipt</translation>
    </message>
    <message>
        <source>сума</source>
        <translation>amount</translation>
    </message>
    <message>
        <source>Зни&amp;жка:</source>
        <translation>&amp;Discount:</translation>
    </message>
    <message>
        <source>до оплати:</source>
        <translation>to pay:</translation>
    </message>
    <message>
        <source>0.00</source>
        <translation>0.00</translation>
    </message>
    <message>
        <source>Оп&amp;лата F9</source>
        <translation>Pa&amp;y F9</translation>
    </message>
    <message>
        <source>Чек порожній. Скануйте товар або знайдіть його та натисніть Enter.</source>
        <translation>The receipt is empty. Scan a goods item, or find it and press Enter.</translation>
    </message>
    <message>
        <source>Попередження!</source>
        <translation>Warning!</translation>
    </message>
    <message>
        <source>Не достатньо товару для продажу!</source>
        <translation>Not enough stock for the sale!</translation>
    </message>
    <message>
        <source>Продати</source>
        <translation>Sell</translation>
    </message>
    <message>
        <source>Кількість штучного товару — ціле число від 1.</source>
        <translation>The quantity of a piece item is a whole number from 1.</translation>
    </message>
    <message>
        <source>Кількість повинна бути більша за нуль.</source>
        <translation>The quantity must be greater than zero.</translation>
    </message>
    <message>
        <source>+ − * кількість, Delete прибрати рядок, F3 чому така ціна, F9 оплата, F12 закрити зміну, Esc очистити</source>
        <translation>+ − * quantity, Delete removes the row, F3 why this price, F9 payment, F12 closes the shift, Esc clears</translation>
    </message>
    <message>
        <source>Ру&amp;х готівки…</source>
        <translation>Ta&amp;ke / add cash…</translation>
    </message>
    <message>
        <source>Службове внесення та вилучення, Shift+F9</source>
        <translation>Service cash in and out, Shift+F9</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Помилка при запиті отримання максимального розміру поля</source>
        <translation>Error when asking for the maximum size of field</translation>
    </message>
    <message>
        <source>в таблиці</source>
        <translation>in table</translation>
    </message>
    <message>
        <source>Поле &quot;%1&quot;: таке значення має запис №%2 &quot;%3&quot;.</source>
        <translation>Field &quot;%1&quot;: record no. %2 &quot;%3&quot; has this value.</translation>
    </message>
    <message>
        <source>Поле &quot;%1&quot;: база даних зберігає &quot;%2&quot; замість введеного. Нічого не збережено. Введіть інше значення.</source>
        <translation>Field &quot;%1&quot;: the database stores &quot;%2&quot; instead of what was entered. Nothing has been saved. Enter another value.</translation>
    </message>
    <message>
        <source>Поки редактор був відкритий, вибране в полі &quot;%1&quot; перейменувала інша програма. Нічого не збережено. Закрийте редактор, відкрийте його знову і виберіть ще раз.</source>
        <translation>While the editor was open another program renamed what is chosen in &quot;%1&quot;. Nothing was saved. Close the editor, open it again and choose once more.</translation>
    </message>
    <message>
        <source>Поки редактор був відкритий, цей запис вилучила інша програма. Нічого не збережено.</source>
        <translation>While the editor was open another program deleted this record. Nothing was saved.</translation>
    </message>
    <message>
        <source>Запис не знайдено id=</source>
        <translation>Record not found id=</translation>
    </message>
    <message>
        <source>Поки редактор був відкритий, вибране в полі &quot;%1&quot; вилучила інша програма. Нічого не збережено. Виберіть інше.</source>
        <translation>While the editor was open, another program has removed what is chosen in &quot;%1&quot;. Nothing was saved. Choose something else.</translation>
    </message>
    <message>
        <source>без дати</source>
        <translation>no date</translation>
    </message>
</context>
<context>
    <name>RecordDialog</name>
    <message>
        <source>Зв&apos;язок обірвався під час запису, і невідомо, чи запис збережено. Зачекайте, доки зв&apos;язок відновиться, і збережіть ще раз: програма спершу запитає сервер.</source>
        <translation>The connection broke while the record was being written, and it is not known whether it was saved. Wait until the connection is back and save again: the program will ask the server first.</translation>
    </message>
</context>
<context>
    <name>RefusedList</name>
    <message>
        <source>Номер запису</source>
        <translation>Record</translation>
    </message>
    <message>
        <source>Причина</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>Пропущених записів немає.</source>
        <translation>No records were left out.</translation>
    </message>
    <message>
        <source>Пропущені записи</source>
        <translation>Records left out</translation>
    </message>
</context>
<context>
    <name>RegisterServer</name>
    <message>
        <source>Бібліотека для роботи з сервером CASHDRIVE існує тільки для windows</source>
        <translation>The library for the CASHDRIVE server exists for Windows only</translation>
    </message>
</context>
<context>
    <name>ReportWindow</name>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Цей звіт зберігається у файл кнопкою «Список у PDF…».</source>
        <translation>This report is saved to a file with the button &quot;List to PDF…&quot;.</translation>
    </message>
    <message>
        <source>час: %1 с</source>
        <translation>time: %1 s</translation>
    </message>
    <message>
        <source>За цими умовами нічого не знайдено.</source>
        <translation>Nothing was found under these conditions.</translation>
    </message>
</context>
<context>
    <name>RightsGuard</name>
    <message>
        <source>Після цього не лишилося б жодного користувача, який може увійти і має повний дозвіл на користувачів та групи прав: ніхто вже не зміг би дати доступ. Нічого не збережено. Спершу дайте ці права іншому користувачу.</source>
        <translation>After this no user would be left who can log in and has full right to users and permission groups: nobody could give access any more. Nothing was saved. Give these rights to another user first.</translation>
    </message>
    <message>
        <source>Поки ви працювали, у вас забрали право це змінювати. Нічого не збережено.</source>
        <translation>While you were working, your right to change this was taken away. Nothing has been saved.</translation>
    </message>
</context>
<context>
    <name>RightsTree</name>
    <message>
        <source>Право</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Інші програми (не змінюються тут)</source>
        <translation>Other programs (not changed here)</translation>
    </message>
    <message>
        <source>Право №%1</source>
        <translation>Right No. %1</translation>
    </message>
    <message>
        <source>Наступне значення виділених прав</source>
        <translation>The next value of the selected rights</translation>
    </message>
    <message>
        <source>Заборона, повний дозвіл, тільки перегляд</source>
        <translation>Denied, full, view only</translation>
    </message>
</context>
<context>
    <name>Rules</name>
    <message>
        <source>&quot;%1&quot; схоже на штрихкод, а не на ціну. Зітріть його і введіть ціну.</source>
        <translation>&quot;%1&quot; looks like a barcode, not a price. Delete it and type the price.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; не є ціною від 0 до %2.</source>
        <translation>&quot;%1&quot; is no price from 0 to %2.</translation>
    </message>
</context>
<context>
    <name>SaleChanges</name>
    <message>
        <source>без акції</source>
        <translation>no promotion</translation>
    </message>
    <message>
        <source>«%1»: %2: %3 → %4</source>
        <translation>“%1”: %2: %3 → %4</translation>
    </message>
    <message>
        <source>ціна змінилась</source>
        <translation>the price has changed</translation>
    </message>
    <message>
        <source>акція змінилась</source>
        <translation>the promotion has changed</translation>
    </message>
    <message>
        <source>податкова група змінилась</source>
        <translation>the tax group has changed</translation>
    </message>
    <message>
        <source>«%1»: товар заблоковано.</source>
        <translation>“%1”: the goods item is blocked.</translation>
    </message>
    <message>
        <source>«%1»: товар більше не продається в цьому магазині.</source>
        <translation>“%1”: the goods item is not sold in this shop any more.</translation>
    </message>
    <message>
        <source>«%1»: товар більше не має ціни.</source>
        <translation>“%1”: the goods item has no price any more.</translation>
    </message>
</context>
<context>
    <name>SaleCheck</name>
    <message>
        <source>Зміну цієї каси відкрито в магазині «%1». Закрийте її перед продажем.</source>
        <translation>The shift of this register was opened in the shop “%1”. Close it before selling.</translation>
    </message>
    <message>
        <source>Сервер не відповів, чи можна тут продавати. Повторіть оплату.</source>
        <translation>The server did not tell whether this can be sold here. Pay again.</translation>
    </message>
    <message>
        <source>Стан зміни невідомий. Повторіть оплату.</source>
        <translation>The state of the shift is unknown. Pay again.</translation>
    </message>
    <message>
        <source>Сервер не відповів, чи змінились ціни. Повторіть оплату.</source>
        <translation>The server did not tell whether prices have changed. Pay again.</translation>
    </message>
</context>
<context>
    <name>SaleGuard</name>
    <message>
        <source>Очистити чек?</source>
        <translation>Clear the receipt?</translation>
    </message>
    <message>
        <source>У чеку є товари, чек ще не оплачено.
Очистити його?</source>
        <translation>The receipt has goods and is not paid yet.
Clear it?</translation>
    </message>
    <message>
        <source>Очистити</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>%1 Закрийте вкладку, коли це закінчиться.</source>
        <translation>%1 Close the tab when that is over.</translation>
    </message>
    <message>
        <source>Закрити вкладку?</source>
        <translation>Close the tab?</translation>
    </message>
    <message>
        <source>Закрита вкладка його забуде: тоді перевірте чек на %1 у звіті «Чеки».</source>
        <translation>A closed tab forgets it: then check the receipt of %1 in the report “Receipts”.</translation>
    </message>
    <message>
        <source>Закрити</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>SalePayment</name>
    <message>
        <source>Магазин зайнятий!</source>
        <translation>The shop is busy!</translation>
    </message>
    <message>
        <source>Виберіть магазин і касу.</source>
        <translation>Choose a shop and a cash register.</translation>
    </message>
    <message>
        <source>Магазин або касу заблоковано: тут можна лише закрити зміну.</source>
        <translation>The shop or the cash register is blocked: only closing the shift is possible here.</translation>
    </message>
    <message>
        <source>Дата чека</source>
        <translation>Date of the receipt</translation>
    </message>
    <message>
        <source>Товари змінились</source>
        <translation>The goods have changed</translation>
    </message>
    <message>
        <source>Продати за новими умовами?</source>
        <translation>Sell on the new terms?</translation>
    </message>
    <message>
        <source>Продати</source>
        <translation>Sell</translation>
    </message>
    <message>
        <source>Магазини й каси ще читаються. Повторіть оплату.</source>
        <translation>Shops and registers are still being read. Pay again.</translation>
    </message>
    <message>
        <source>Перевіряється…</source>
        <translation>Checking…</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
    <message>
        <source>Чек № %1: запитується сервер…</source>
        <translation>Receipt no. %1: asking the server…</translation>
    </message>
</context>
<context>
    <name>SalePlaces</name>
    <message>
        <source>%1 (заблоковано, лише закриття зміни)</source>
        <translation>%1 (blocked, shift closing only)</translation>
    </message>
    <message>
        <source>%1 (лише закриття зміни)</source>
        <translation>%1 (shift closing only)</translation>
    </message>
</context>
<context>
    <name>SalePriceQuestion</name>
    <message>
        <source>Виберіть товар у списку або рядок чека, щоб побачити, чому така ціна.</source>
        <translation>Choose an item in the list or a row of the receipt to see why it has this price.</translation>
    </message>
</context>
<context>
    <name>SaleWork</name>
    <message>
        <source>Лише перегляд: продавати може користувач з повним дозволом.</source>
        <translation>View only: selling needs full permission.</translation>
    </message>
    <message>
        <source>Сьогодні %1, а вибрано дату %2.
Записати цією датою?</source>
        <translation>Today is %1, the chosen date is %2.
Write with that date?</translation>
    </message>
    <message>
        <source>Записати %1</source>
        <translation>Write %1</translation>
    </message>
</context>
<context>
    <name>Screenshots</name>
    <message>
        <source>Ви впевнені?</source>
        <translation>Are you sure?</translation>
    </message>
    <message>
        <source>Невірні налаштування
можуть пошкодити дані в базі!</source>
        <translation>Wrong settings
can damage the data in the database!</translation>
    </message>
    <message>
        <source>&amp;Так</source>
        <translation>&amp;Yes</translation>
    </message>
</context>
<context>
    <name>ServerError</name>
    <message>
        <source>Немає зв&apos;язку із сервером бази даних. Програма підключається знову сама; перевірте мережу, якщо це триває.</source>
        <translation>There is no connection to the database server. The program is reconnecting by itself; check the network if this lasts.</translation>
    </message>
    <message>
        <source>Сервер бази даних зараз нічого не приймає: він утратив зв&apos;язок з іншими серверами кластера. Нічого не записано. Повторіть за хвилину або зверніться до адміністратора бази.</source>
        <translation>The database server accepts nothing at the moment: it has lost the other servers of its cluster. Nothing was written. Try again in a minute or ask the database administrator.</translation>
    </message>
    <message>
        <source>Ці дані зараз тримає інша програма (продаж, звіт або резервне копіювання). Повторіть за хвилину.</source>
        <translation>Another program holds these data at the moment (a sale, a report or a backup). Try again in a minute.</translation>
    </message>
    <message>
        <source>Інша програма щойно записала ті самі дані. Нічого не записано. Повторіть.</source>
        <translation>Another program has just written the same data. Nothing was written. Try again.</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Перед підключенням закрийте всі вкладки!</source>
        <translation>Close all tabs before connecting!</translation>
    </message>
    <message>
        <source>Дочекайтесь кінця завдання «%1» або скасуйте його!</source>
        <translation>Wait for the end of “%1”, or cancel it!</translation>
    </message>
    <message>
        <source>Виправте файл і підключіться знову, або введіть налаштування.</source>
        <translation>Mend the file and connect again, or enter the settings.</translation>
    </message>
    <message>
        <source>Підключення до бази даних на %1:%2</source>
        <translation>Connecting to the database at %1:%2</translation>
    </message>
    <message>
        <source>Підключення до бази даних</source>
        <translation>Connecting to the database</translation>
    </message>
    <message>
        <source>Користувач не увійшов.</source>
        <translation>No user is logged in.</translation>
    </message>
    <message>
        <source>%1:%2, база %3</source>
        <translation>%1:%2, database %3</translation>
    </message>
    <message>
        <source>З&apos;єднання не захищене.</source>
        <translation>The connection is not encrypted.</translation>
    </message>
    <message>
        <source>З&apos;єднання захищене (TLS): %1</source>
        <translation>The connection is encrypted (TLS): %1</translation>
    </message>
    <message>
        <source>Немає зв&apos;язку з базою даних. Перевірте налаштування або мережу і підключіться знову.</source>
        <translation>No connection to the database. Check the settings or the network and connect again.</translation>
    </message>
    <message>
        <source>Усі таблиці програми в базі «%1» є.</source>
        <translation>The database “%1” has all tables of the program.</translation>
    </message>
    <message>
        <source>Таблиці не створено. Перевірте права користувача бази і підключіться знову.</source>
        <translation>The tables are not created. Check the rights of the database user and connect again.</translation>
    </message>
    <message>
        <source>На сервері немає бази даних «%1».
Створити її та таблиці програми?</source>
        <translation>The server has no database “%1”.
Create it and the tables of the program?</translation>
    </message>
    <message>
        <source>У базі даних «%1» немає таблиць програми.
Створити таблиці?</source>
        <translation>The database “%1” has no tables of the program.
Create the tables?</translation>
    </message>
    <message>
        <source>Створити?</source>
        <translation>Create?</translation>
    </message>
    <message>
        <source>База даних не готова: таблиць програми немає.</source>
        <translation>The database is not ready: it has no tables of the program.</translation>
    </message>
    <message>
        <source>Зачекайте, доки закінчиться робота з базою, яка триває.</source>
        <translation>Wait until the work on the database that is under way has finished.</translation>
    </message>
    <message>
        <source>Зачекайте. Створюються таблиці.</source>
        <translation>Wait. The tables are being created.</translation>
    </message>
    <message>
        <source>Створення таблиць</source>
        <translation>Creating the tables</translation>
    </message>
    <message>
        <source>Прискорити звіти?</source>
        <translation>Speed up reports?</translation>
    </message>
    <message>
        <source>&amp;Прибрати індекси</source>
        <translation>&amp;Remove the indexes</translation>
    </message>
    <message>
        <source>&amp;Додати індекси</source>
        <translation>&amp;Add the indexes</translation>
    </message>
    <message>
        <source>Перед входом закрийте всі вкладки!</source>
        <translation>Close all tabs before logging in!</translation>
    </message>
    <message>
        <source>Нові налаштування бази почнуть діяти, коли ви закриєте всі вкладки і увійдете знову.</source>
        <translation>The new database settings will take effect when you close all tabs and log in again.</translation>
    </message>
    <message>
        <source>Нові налаштування бази почнуть діяти, коли закінчиться завдання «%1» і ви увійдете знову.</source>
        <translation>The new database settings take effect when “%1” is over and you have logged in again.</translation>
    </message>
    <message>
        <source>У вас більше немає доступу до бекофісу: його забрали, поки ви працювали.</source>
        <translation>You have no access to the back office any more: it was taken away while you worked.</translation>
    </message>
    <message>
        <source>Вас перевели до групи прав &quot;%1&quot;. Меню і вкладки тепер за її правами.</source>
        <translation>You have been moved to the permission group “%1”. Menus and tabs now follow its rights.</translation>
    </message>
    <message>
        <source>Ваші права змінено: меню і вкладки тепер за новими.</source>
        <translation>Your rights were changed: menus and tabs now follow the new ones.</translation>
    </message>
</context>
<context>
    <name>SettingFile</name>
    <message>
        <source>це каталог.</source>
        <translation>it is a folder.</translation>
    </message>
    <message>
        <source>це не звичайний файл.</source>
        <translation>it is not a regular file.</translation>
    </message>
    <message>
        <source>він завеликий для файлу налаштувань.</source>
        <translation>it is too large for a settings file.</translation>
    </message>
    <message>
        <source>немає дозволу на читання.</source>
        <translation>there is no permission to read it.</translation>
    </message>
    <message>
        <source>у ньому немає налаштувань програми.</source>
        <translation>it holds no settings of the program.</translation>
    </message>
    <message>
        <source>Файл налаштувань не прочитано: %1
%2</source>
        <translation>The settings file was not read: %1
%2</translation>
    </message>
</context>
<context>
    <name>ShiftBar</name>
    <message>
        <source>Закрит&amp;и зміну</source>
        <translation>Close shi&amp;ft</translation>
    </message>
    <message>
        <source>F12</source>
        <translation>F12</translation>
    </message>
    <message>
        <source>Закрити пе&amp;ріод</source>
        <translation>Close peri&amp;od</translation>
    </message>
    <message>
        <source>Немає магазину, в якому ви можете продавати.</source>
        <translation>There is no shop in which you may sell.</translation>
    </message>
    <message>
        <source>У магазині немає незаблокованої каси.</source>
        <translation>The shop has no cash register that is not blocked.</translation>
    </message>
    <message>
        <source>Стан зміни невідомий.</source>
        <translation>The state of the shift is unknown.</translation>
    </message>
    <message>
        <source>Зміна буде відкрита першим чеком.</source>
        <translation>The first receipt will open the shift.</translation>
    </message>
    <message>
        <source>Зміна № %1 відкрита, день періоду: %2.</source>
        <translation>Shift No. %1 is open, day of the period: %2.</translation>
    </message>
    <message>
        <source>Зміну № %1 відкрив інший користувач: %2</source>
        <translation>Shift No. %1 was opened by another user: %2</translation>
    </message>
    <message>
        <source>Виберіть магазин і касу.</source>
        <translation>Choose a shop and a cash register.</translation>
    </message>
    <message>
        <source>На цій касі немає відкритої зміни: закривати нічого.</source>
        <translation>This cash register has no open shift: there is nothing to close.</translation>
    </message>
    <message>
        <source>Зміну № %1 відкрив інший користувач: %2. Закрити її замість нього?</source>
        <translation>Shift No. %1 was opened by another user: %2. Close it in their place?</translation>
    </message>
    <message>
        <source>Магазин зайнятий!</source>
        <translation>The shop is busy!</translation>
    </message>
    <message>
        <source>Закрити її</source>
        <translation>Close it</translation>
    </message>
    <message>
        <source>закрити?</source>
        <translation>close?</translation>
    </message>
    <message>
        <source>Ви збираєтесь закрити зміну
в останні день періоду.
Закрити період перед закриттям зміни?</source>
        <translation>You are about to close the shift
on the last day of the period.
Close the period before closing the shift?</translation>
    </message>
    <message>
        <source>Відмінити закриття</source>
        <translation>Cancel closing</translation>
    </message>
    <message>
        <source>Закрити тільки зміну</source>
        <translation>Close the shift only</translation>
    </message>
    <message>
        <source>Закрити період та зміну</source>
        <translation>Close the period and the shift</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Зміну № %1 закрито.</source>
        <translation>Shift No. %1 is closed.</translation>
    </message>
    <message>
        <source>Період закрито. Наступна зміна почне новий.</source>
        <translation>The period is closed. The next shift starts a new one.</translation>
    </message>
    <message>
        <source>Попередження?</source>
        <translation>Warning?</translation>
    </message>
    <message>
        <source>Період не закрито!</source>
        <translation>The period is not closed!</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
    <message>
        <source>Перевіряється…</source>
        <translation>Checking…</translation>
    </message>
    <message>
        <source>Магазини й каси ще читаються. Закрийте зміну ще раз.</source>
        <translation>Shops and registers are still being read. Close the shift again.</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
    <message>
        <source>Магазини й каси ще читаються. Повторіть.</source>
        <translation>Shops and registers are still being read. Try again.</translation>
    </message>
    <message>
        <source>Магазин або касу заблоковано: тут можна лише закрити зміну.</source>
        <translation>The shop or the register is blocked: a shift can only be closed here.</translation>
    </message>
    <message>
        <source>Дата чека</source>
        <translation>Date of the receipt</translation>
    </message>
    <message>
        <source>Зміну цієї каси відкрито в іншому магазині: її період тут не закрити.</source>
        <translation>The shift of this register was opened in another shop: its period cannot be closed here.</translation>
    </message>
    <message>
        <source>Період уже закрито. Наступна зміна почне новий.</source>
        <translation>The period is closed already. The next shift begins a new one.</translation>
    </message>
    <message>
        <source>Зміну № %1 відкрив інший користувач: %2. Закрити її період замість нього?</source>
        <translation>Shift No. %1 was opened by another user: %2. Close its period in his place?</translation>
    </message>
    <message>
        <source>Закрити період</source>
        <translation>Close the period</translation>
    </message>
    <message>
        <source>Період закрито, пораховане записано: документ № %1.</source>
        <translation>The period is closed, what was counted is written: document No. %1.</translation>
    </message>
</context>
<context>
    <name>ShiftCloser</name>
    <message>
        <source>Зміну № %1 вже закрито в іншій програмі. Нічого не записано.</source>
        <translation>Shift No. %1 has already been closed in another program. Nothing is recorded.</translation>
    </message>
    <message>
        <source>На касі зараз записує інша програма. Зміну № %1 не закрито. Закрийте її ще раз.</source>
        <translation>Another program is recording at the cash register now. Shift No. %1 is not closed. Close it again.</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався під час закриття зміни № %1 і невідомо, чи її закрито. Закрийте її ще раз: двічі вона не закриється.</source>
        <translation>The connection broke while shift No. %1 was being closed, and it is not known whether it was closed. Close it again: it will not close twice.</translation>
    </message>
    <message>
        <source>Зміну № %1 не закрито. Закрийте її ще раз.</source>
        <translation>Shift No. %1 is not closed. Close it again.</translation>
    </message>
    <message>
        <source>В даному магазині періодичність один день.
Період не може бути закритий</source>
        <translation>This shop has a one-day cycle.
The period cannot be closed</translation>
    </message>
    <message>
        <source>Період не може бути закритий
не в останній день!</source>
        <translation>The period cannot be closed
before its last day!</translation>
    </message>
    <message>
        <source>У зміні № %1 є чеки за %2: раніше її закрити не можна. Виберіть цю дату або пізнішу.</source>
        <translation>Shift No. %1 has receipts of %2: it cannot be closed earlier. Choose that date or a later one.</translation>
    </message>
    <message>
        <source>Зміну № %1 не закрито: дата раніша за її останній чек. Виберіть дату останнього чека або пізнішу.</source>
        <translation>Shift No. %1 was not closed: the date is before its latest receipt. Choose the date of the latest receipt or a later one.</translation>
    </message>
    <message>
        <source>Зміну № %1 не закрито: її сума більша за %2, Z-звіт такої не вміщає. Зверніться до підтримки.</source>
        <translation>Shift No. %1 was not closed: its sum is above %2, which a Z-report cannot hold. Ask the support.</translation>
    </message>
    <message>
        <source>Поки ви рахували, на касі записано ще чеки або готівку. Зміну № %1 не закрито. Перевірте суми та закрийте її ще раз.</source>
        <translation>While you counted, more receipts or cash were recorded at the register. Shift No. %1 was not closed. Check the sums and close it again.</translation>
    </message>
</context>
<context>
    <name>Slip</name>
    <message>
        <source>код %1</source>
        <translation>code %1</translation>
    </message>
    <message>
        <source>Сума</source>
        <translation>Total</translation>
    </message>
    <message>
        <source>Знижка</source>
        <translation>Discount</translation>
    </message>
    <message>
        <source>До сплати</source>
        <translation>To pay</translation>
    </message>
    <message>
        <source>Готівка</source>
        <translation>Cash</translation>
    </message>
    <message>
        <source>Картка</source>
        <translation>Card</translation>
    </message>
    <message>
        <source>Сертифікат</source>
        <translation>Certificate</translation>
    </message>
    <message>
        <source>Інша оплата</source>
        <translation>Other payment</translation>
    </message>
    <message>
        <source>Службове внесення</source>
        <translation>Service cash in</translation>
    </message>
    <message>
        <source>Службова видача</source>
        <translation>Service cash out</translation>
    </message>
    <message>
        <source>Оборот зміни</source>
        <translation>Shift turnover</translation>
    </message>
    <message>
        <source>невідомий тип</source>
        <translation>unknown type</translation>
    </message>
    <message>
        <source>Позицій: %1</source>
        <translation>Items: %1</translation>
    </message>
    <message>
        <source>До повернення</source>
        <translation>To return</translation>
    </message>
    <message>
        <source>Суми чека не збігаються: товари зі знижкою %1, до сплати %2, оплачено %3</source>
        <translation>The sums of the receipt do not match: goods with discount %1, to pay %2, paid %3</translation>
    </message>
    <message>
        <source>Звіт №</source>
        <translation>Report No. </translation>
    </message>
    <message>
        <source>ПРИЙОМ</source>
        <translation>GOODS IN</translation>
    </message>
    <message>
        <source>ПЕРЕМІЩЕННЯ</source>
        <translation>TRANSFER</translation>
    </message>
    <message>
        <source>ПОВЕРНЕННЯ</source>
        <translation>RETURN</translation>
    </message>
    <message>
        <source>Чек №</source>
        <translation>Receipt No. </translation>
    </message>
    <message>
        <source>Відсутні дані після запиту:</source>
        <translation>No data after the query:</translation>
    </message>
    <message>
        <source>ПДВ %1 %2 %</source>
        <translation>VAT %1 %2 %</translation>
    </message>
    <message>
        <source>Група</source>
        <translation>Group</translation>
    </message>
    <message>
        <source>Оборот</source>
        <translation>Turnover</translation>
    </message>
    <message>
        <source>Податок</source>
        <translation>Tax</translation>
    </message>
    <message>
        <source>Повернення</source>
        <translation>Returns</translation>
    </message>
    <message>
        <source>Знижки</source>
        <translation>Discounts</translation>
    </message>
    <message>
        <source>Чеків продажу</source>
        <translation>Sale receipts</translation>
    </message>
    <message>
        <source>Чеків зі знижкою</source>
        <translation>Discounted receipts</translation>
    </message>
    <message>
        <source>Анульованих чеків</source>
        <translation>Cancelled receipts</translation>
    </message>
    <message>
        <source>Анульованих позицій</source>
        <translation>Cancelled positions</translation>
    </message>
    <message>
        <source>Z-звіт</source>
        <translation>Z-report</translation>
    </message>
    <message>
        <source>Чек</source>
        <translation>Receipt</translation>
    </message>
    <message>
        <source>А</source>
        <translation>A</translation>
    </message>
    <message>
        <source>Б</source>
        <translation>B</translation>
    </message>
    <message>
        <source>В</source>
        <translation>V</translation>
    </message>
    <message>
        <source>Г</source>
        <translation>G</translation>
    </message>
    <message>
        <source>Д</source>
        <translation>D</translation>
    </message>
    <message>
        <source>зал</source>
        <translation>floor</translation>
    </message>
    <message>
        <source>склад</source>
        <translation>stock</translation>
    </message>
    <message>
        <source>ПЕРЕРАХУНОК</source>
        <translation>STOCK COUNT</translation>
    </message>
    <message>
        <source>зал, різниця з програмою</source>
        <translation>shop floor, difference to the program</translation>
    </message>
</context>
<context>
    <name>SlipPrint</name>
    <message>
        <source>Перегляд перед друком</source>
        <translation>Print preview</translation>
    </message>
</context>
<context>
    <name>SlipView</name>
    <message>
        <source>Документ</source>
        <translation>Document</translation>
    </message>
    <message>
        <source>Д&amp;рук…</source>
        <translation>Pri&amp;nt…</translation>
    </message>
    <message>
        <source>Зберегти PD&amp;F…</source>
        <translation>Save PD&amp;F…</translation>
    </message>
    <message>
        <source>Читається…</source>
        <translation>Reading…</translation>
    </message>
</context>
<context>
    <name>StockDesk</name>
    <message>
        <source>Продаж F6</source>
        <translation>Sale F6</translation>
    </message>
    <message>
        <source>Очистити документ?</source>
        <translation>Clear the document?</translation>
    </message>
    <message>
        <source>%1: у документі є товари (%2), його ще не записано.
Очистити його?</source>
        <translation>%1: there are goods in the document (%2), it is not written yet.
Clear it?</translation>
    </message>
    <message>
        <source>Очистити</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>Документ</source>
        <translation>Document</translation>
    </message>
    <message>
        <source>Залишити його так? Тоді перевірте документ у звіті «Чеки».</source>
        <translation>Leave it so? Then check the document in the report “Receipts”.</translation>
    </message>
    <message>
        <source>Залишити</source>
        <translation>Leave it</translation>
    </message>
</context>
<context>
    <name>StockDocument</name>
    <message>
        <source>Кількість не може бути нулем. Рядок прибирає Delete.</source>
        <translation>The quantity cannot be zero. Delete removes the row.</translation>
    </message>
    <message>
        <source>Кількість повинна бути більша за нуль.</source>
        <translation>The quantity must be greater than zero.</translation>
    </message>
    <message>
        <source>Кількість завелика: більше ніж %1 не вміщується.</source>
        <translation>The quantity is too large: more than %1 does not fit.</translation>
    </message>
    <message>
        <source>Кількість штучного товару — ціле число.</source>
        <translation>The quantity of an item sold by the piece is a whole number.</translation>
    </message>
</context>
<context>
    <name>StockMode</name>
    <message>
        <source>При&amp;йом F7</source>
        <translation>Receive F7</translation>
    </message>
    <message>
        <source>Прийом</source>
        <translation>Receipt of goods</translation>
    </message>
    <message>
        <source>Прийняти:</source>
        <translation>Receive:</translation>
    </message>
    <message>
        <source>на склад</source>
        <translation>into the store room</translation>
    </message>
    <message>
        <source>у зал</source>
        <translation>onto the floor</translation>
    </message>
    <message>
        <source>Прийняти F9</source>
        <translation>Receive F9</translation>
    </message>
    <message>
        <source>Документ порожній. Скануйте товар, знайдіть його та натисніть Enter або вставте таблицю.</source>
        <translation>The document is empty. Scan an item, find it and press Enter, or paste a table.</translation>
    </message>
    <message>
        <source>Перемі&amp;щення F8</source>
        <translation>Move F8</translation>
    </message>
    <message>
        <source>Переміщення</source>
        <translation>Movement</translation>
    </message>
    <message>
        <source>Перемістити:</source>
        <translation>Move:</translation>
    </message>
    <message>
        <source>склад → зал</source>
        <translation>store room → floor</translation>
    </message>
    <message>
        <source>зал → склад</source>
        <translation>floor → store room</translation>
    </message>
    <message>
        <source>Перемістити F9</source>
        <translation>Move F9</translation>
    </message>
</context>
<context>
    <name>StockModel</name>
    <message>
        <source>код</source>
        <translation>code</translation>
    </message>
    <message>
        <source>штрихкод</source>
        <translation>barcode</translation>
    </message>
    <message>
        <source>назва</source>
        <translation>name</translation>
    </message>
    <message>
        <source>зал</source>
        <translation>floor</translation>
    </message>
    <message>
        <source>склад</source>
        <translation>stock</translation>
    </message>
    <message>
        <source>кількість</source>
        <translation>quantity</translation>
    </message>
    <message>
        <source>зауваження</source>
        <translation>remark</translation>
    </message>
    <message>
        <source>введіть кількість</source>
        <translation>enter the quantity</translation>
    </message>
    <message>
        <source>%1 лише %2</source>
        <translation>%1 only %2</translation>
    </message>
    <message>
        <source>повернення або списання</source>
        <translation>return or write-off</translation>
    </message>
</context>
<context>
    <name>StockPane</name>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>Вставити таб&amp;лицю…</source>
        <translation>P&amp;aste table…</translation>
    </message>
    <message>
        <source>Видалити р&amp;ядок</source>
        <translation>Remove ro&amp;w</translation>
    </message>
    <message>
        <source>О&amp;чистити документ</source>
        <translation>Clear &amp;document</translation>
    </message>
    <message>
        <source>+ − * кількість (менша за нуль: повернення або списання), Delete прибрати рядок, Ctrl+V таблиця, F9 записати, Esc очистити</source>
        <translation>+ − * quantity (below zero: return or write-off), Delete removes the row, Ctrl+V table, F9 writes, Esc clears</translation>
    </message>
    <message>
        <source>+ − * кількість, Delete прибрати рядок, Ctrl+V таблиця, F9 записати, Esc очистити</source>
        <translation>+ − * quantity, Delete removes the row, Ctrl+V table, F9 writes, Esc clears</translation>
    </message>
    <message>
        <source>Позицій: %1, кількість: %2</source>
        <translation>Items: %1, quantity: %2</translation>
    </message>
</context>
<context>
    <name>StockPlace</name>
    <message>
        <source>зал</source>
        <translation>floor</translation>
    </message>
    <message>
        <source>склад</source>
        <translation>stock</translation>
    </message>
    <message>
        <source>у залі</source>
        <translation>on the floor</translation>
    </message>
    <message>
        <source>на складі</source>
        <translation>in the store room</translation>
    </message>
</context>
<context>
    <name>StockWriter</name>
    <message>
        <source>«%1»: %2 %3, треба %4</source>
        <translation>“%1”: %2 %3, wanted %4</translation>
    </message>
    <message>
        <source>… і ще %1</source>
        <translation>… and %1 more</translation>
    </message>
    <message>
        <source>«%1»: залишок %2 не вмістить стільки. Перевірте кількість.</source>
        <translation>“%1”: the stock %2 cannot hold that much. Check the quantity.</translation>
    </message>
    <message>
        <source>Товару не вистачає:</source>
        <translation>There is not enough:</translation>
    </message>
    <message>
        <source>З даним магазином працює інший користувач.
Зачекайте або зв&apos;яжіться з пітримкою.</source>
        <translation>Another user is working with this shop.
Wait or contact support.</translation>
    </message>
    <message>
        <source>Зміну № %1 щойно закрила інша програма. Документ не записано. Запишіть його ще раз: він відкриє нову зміну.</source>
        <translation>Another program has just closed shift No. %1. The document was not written. Write it again: it will open a new shift.</translation>
    </message>
    <message>
        <source>Документ з таким номером щойно записала інша програма на цій касі. Документ не записано. Запишіть його ще раз.</source>
        <translation>Another program has just written a document of that number on this register. The document was not written. Write it again.</translation>
    </message>
    <message>
        <source>Залишки зараз записує інша програма. Документ не записано. Запишіть його ще раз.</source>
        <translation>Another program is writing to the stock now. The document was not written. Write it again.</translation>
    </message>
    <message>
        <source>Зв&apos;язок обірвався під час запису документа № %1 і невідомо, чи його записано. Перед новим записом програма запитає сервер ще раз.</source>
        <translation>The connection broke while document No. %1 was being written, and it is not known whether it was. Before the next writing the program will ask the server once more.</translation>
    </message>
    <message>
        <source>Документ не записано. Запишіть його ще раз.</source>
        <translation>The document was not written. Write it again.</translation>
    </message>
</context>
<context>
    <name>StockWriting</name>
    <message>
        <source>Магазини й каси ще читаються. Запишіть документ ще раз.</source>
        <translation>Shops and registers are still being read. Write the document again.</translation>
    </message>
    <message>
        <source>Виберіть магазин і касу.</source>
        <translation>Choose a shop and a cash register.</translation>
    </message>
    <message>
        <source>Магазин або касу заблоковано: тут можна лише закрити зміну.</source>
        <translation>The shop or the cash register is blocked: only closing the shift is possible here.</translation>
    </message>
    <message>
        <source>У документі немає товарів.</source>
        <translation>There are no goods in the document.</translation>
    </message>
    <message>
        <source>Не всі кількості введено. Введіть кількість цього товару або видаліть рядок.</source>
        <translation>Not all quantities are entered. Enter that of this item, or delete the row.</translation>
    </message>
    <message>
        <source>Дата документа</source>
        <translation>Date of the document</translation>
    </message>
    <message>
        <source>Записується…</source>
        <translation>Writing…</translation>
    </message>
    <message>
        <source>Залишок стане меншим за нуль</source>
        <translation>The stock will fall below zero</translation>
    </message>
    <message>
        <source>Записати документ усе одно?</source>
        <translation>Write the document all the same?</translation>
    </message>
    <message>
        <source>Записати</source>
        <translation>Write</translation>
    </message>
    <message>
        <source>Магазин зайнятий!</source>
        <translation>The shop is busy!</translation>
    </message>
    <message>
        <source>Документ № %1: запитується сервер…</source>
        <translation>Document No. %1: asking the server…</translation>
    </message>
</context>
<context>
    <name>Taxes</name>
    <message>
        <source>Поки ви редагували, інша програма записала тут «%1». Натисніть Enter ще раз, щоб записати своє, або Esc, щоб залишити це.</source>
        <translation>While you were editing, another program stored “%1” here. Press Enter again to store yours, or Esc to keep this.</translation>
    </message>
    <message>
        <source>Помилка при отриманні кількості записів таблиці</source>
        <translation>Error while counting the records of the table</translation>
    </message>
    <message>
        <source>Помилка запиту</source>
        <translation>Query error</translation>
    </message>
    <message>
        <source>Помилка оновлення запису.</source>
        <translation>Error when updating the record.</translation>
    </message>
    <message>
        <source>Впишіть обидві цифри після крапки: наприклад 07.50 чи 07.05.</source>
        <translation>Fill in both digits behind the point: for example 07.50 or 07.05.</translation>
    </message>
</context>
<context>
    <name>ToolBar</name>
    <message>
        <source>Панель інструментів</source>
        <translation>Tool bar</translation>
    </message>
</context>
<context>
    <name>TransactionCount</name>
    <message>
        <source>каса %1, товар %2</source>
        <translation>register %1, item %2</translation>
    </message>
    <message>
        <source>каса %1, картка %2</source>
        <translation>register %1, card %2</translation>
    </message>
    <message>
        <source>Файл не перейменовано: %1</source>
        <translation>The file was not renamed: %1</translation>
    </message>
    <message>
        <source>Картки немає або її заблоковано.</source>
        <translation>There is no such card, or it is blocked.</translation>
    </message>
</context>
<context>
    <name>TransactionSpool</name>
    <message>
        <source>Транзакції каси %1 не збережено: %2
%3</source>
        <translation>The transactions of register %1 were not kept: %2
%3</translation>
    </message>
    <message>
        <source>Файл транзакцій пошкоджено, його не розібрано: %1</source>
        <translation>The file of transactions is damaged and was not counted: %1</translation>
    </message>
</context>
<context>
    <name>TransferFields</name>
    <message>
        <source>Товару не вистачає:</source>
        <translation>There is not enough:</translation>
    </message>
    <message>
        <source>З магазину</source>
        <translation>From shop</translation>
    </message>
    <message>
        <source>До магазину</source>
        <translation>To shop</translation>
    </message>
    <message>
        <source>Повідомлення</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>До:</source>
        <translation>To:</translation>
    </message>
    <message>
        <source>З:</source>
        <translation>From:</translation>
    </message>
    <message>
        <source>Щоб передати з іншого магазину, спершу очистіть документ.</source>
        <translation>To hand over from another shop, clear the document first.</translation>
    </message>
    <message>
        <source>— виберіть —</source>
        <translation>— choose —</translation>
    </message>
    <message>
        <source>Магазини ще читаються. Запишіть передачу ще раз.</source>
        <translation>The shops are still being read. Save the transfer again.</translation>
    </message>
    <message>
        <source>Немає магазинів, до яких ви можете передавати товар. Їх призначають у групах прав.</source>
        <translation>There are no shops to which you may hand over goods. They are assigned in the permission groups.</translation>
    </message>
    <message>
        <source>Виберіть магазин, з якого передається товар.</source>
        <translation>Choose the shop from which the goods are handed over.</translation>
    </message>
    <message>
        <source>Виберіть магазин, до якого передається товар.</source>
        <translation>Choose the shop to which the goods are handed over.</translation>
    </message>
    <message>
        <source>Передача F11</source>
        <translation>Transfer F11</translation>
    </message>
    <message>
        <source>Передача</source>
        <translation>Transfer</translation>
    </message>
    <message>
        <source>Взяти:</source>
        <translation>Take:</translation>
    </message>
    <message>
        <source>зі складу</source>
        <translation>from the store room</translation>
    </message>
    <message>
        <source>із залу</source>
        <translation>from the floor</translation>
    </message>
    <message>
        <source>Передати F9</source>
        <translation>Hand over F9</translation>
    </message>
    <message>
        <source>Документ порожній. Виберіть магазини, скануйте товар, знайдіть його та натисніть Enter або вставте таблицю.</source>
        <translation>The document is empty. Choose the shops, scan an item, find it and press Enter, or paste a table.</translation>
    </message>
</context>
<context>
    <name>TuneCommand</name>
    <message>
        <source>[т/н] </source>
        <translation>[y/n] </translation>
    </message>
    <message>
        <source>Зроблено: %1 %</source>
        <translation>Done: %1 %</translation>
    </message>
    <message>
        <source>Помилка з&apos;єднання з БД.</source>
        <translation>Database connection error.</translation>
    </message>
    <message>
        <source>veltab --tune-database            показує, що є у базі; нічого не змінює
veltab --tune-database --add      додає індекси для швидких звітів
veltab --tune-database --remove   прибирає їх
З --yes не питає. Завершується з кодом 0 – зроблено або вже так, 1 – не вдалося чи зупинено,
2 – відмова, 3 – невідомий параметр.
</source>
        <translation>veltab --tune-database            tells what the database has; changes nothing
veltab --tune-database --add      adds the indexes for quick reports
veltab --tune-database --remove   takes them away
With --yes it does not ask. Its exit code is 0: done or so already, 1: failed or stopped,
2: not wanted, 3: an unknown argument.
</translation>
    </message>
    <message>
        <source>Індекси для швидких звітів у базі є.</source>
        <translation>The database has the indexes for quick reports.</translation>
    </message>
    <message>
        <source>У базі є лише один з двох індексів для швидких звітів.</source>
        <translation>The database has only one of the two indexes for quick reports.</translation>
    </message>
    <message>
        <source>Індексів для швидких звітів у базі немає.</source>
        <translation>The database has no indexes for quick reports.</translation>
    </message>
    <message>
        <source>Нічого не змінено.</source>
        <translation>Nothing was changed.</translation>
    </message>
</context>
<context>
    <name>Tuning</name>
    <message>
        <source>Індекси додано: звіти прискорено.</source>
        <translation>The indexes are added: reports are sped up.</translation>
    </message>
    <message>
        <source>Індекси прибрано.</source>
        <translation>The indexes are removed.</translation>
    </message>
    <message>
        <source>Зупинено; у базі нічого не змінено.</source>
        <translation>Stopped; nothing is changed in the database.</translation>
    </message>
    <message>
        <source>Зупинено, не дочекавшись сервера. Чи є індекси у базі, покаже «Прискорити звіти…».</source>
        <translation>Stopped without an answer of the server. “Speed up reports…” tells whether the indexes are in the database.</translation>
    </message>
    <message>
        <source>Таблицю чеків увесь час тримає інша програма (довгий звіт або резервне копіювання). Нічого не змінено; повторіть, коли звітів немає.</source>
        <translation>Another program holds the table of receipts all the time (a long report or a backup). Nothing was changed; try again when there are no reports.</translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Індекси для швидких звітів уже є у базі.
Прибрати їх? Звіти і нові чеки стануть повільнішими, база – меншою.</source>
        <translation>The database already has the indexes for fast reports.
Remove them? Reports and new receipts will become slower, the database smaller.</translation>
    </message>
    <message>
        <source>Додати до чеків у базі два індекси?
Звіти за день, перегляд чека і продаж стануть швидшими, база – більшою.
На великій базі це триває кілька хвилин; продавати можна й тоді.
Прибрати індекси можна так само.</source>
        <translation>Add two indexes to the receipts in the database?
Reports for a day, viewing a receipt and selling will become faster, the database larger.
On a large database this takes several minutes; selling can go on meanwhile.
The indexes can be removed in the same way.</translation>
    </message>
    <message>
        <source>Індекси додаються</source>
        <translation>Adding the indexes</translation>
    </message>
    <message>
        <source>Індекси прибираються</source>
        <translation>Removing the indexes</translation>
    </message>
</context>
<context>
    <name>TurnoverBars</name>
    <message>
        <source>відкриті зміни</source>
        <translation>open shifts</translation>
    </message>
    <message>
        <source>відкриті</source>
        <translation>open</translation>
    </message>
    <message>
        <source>інші (%1)</source>
        <translation>others (%1)</translation>
    </message>
</context>
<context>
    <name>Typed</name>
    <message>
        <source>Поле &quot;%1&quot;: у тексті є перенесення рядка, табуляція або інший невидимий знак. Зітріть його: текст має бути в один рядок.</source>
        <translation>Field &quot;%1&quot;: the text holds a line break, a tab or another invisible character. Delete it: the text must be one line.</translation>
    </message>
</context>
<context>
    <name>User</name>
    <message>
        <source>Цей пароль використати не можна. Оберіть інший пароль.</source>
        <translation>This password cannot be used. Choose another password.</translation>
    </message>
    <message>
        <source>Пароль не перевірено: сервер відповів помилкою.</source>
        <translation>The password was not checked: the server answered with an error.</translation>
    </message>
    <message>
        <source>Ключ не перевірено: сервер відповів помилкою.</source>
        <translation>The key was not checked: the server answered with an error.</translation>
    </message>
    <message>
        <source>Цей ключ використати не можна. Оберіть інший ключ.</source>
        <translation>This key cannot be used. Choose another key.</translation>
    </message>
    <message>
        <source>Помилка запиту</source>
        <translation>Query error</translation>
    </message>
    <message>
        <source>Пароль</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Ця людина може або зможе змінювати права, а у вас повного дозволу на групи прав немає. Її логін, пароль, ключ і групу прав змінює лише той, хто його має. Нічого не збережено.</source>
        <translation>This person can change rights, or would be able to, and you do not have full permission for permission groups. Only someone who has it can change the login, password, key and permission group. Nothing has been saved.</translation>
    </message>
</context>
<context>
    <name>UserCard</name>
    <message>
        <source>Картки неможливі: префікс ідентифікації в налаштуваннях повинен складатися з трьох цифр.</source>
        <translation>Cards are impossible: the identification prefix in the settings must have three digits.</translation>
    </message>
    <message>
        <source>Ключ повинен складатися з десяти цифр.</source>
        <translation>The key must have ten digits.</translation>
    </message>
    <message>
        <source>Картка з таким ключем не зчитається: остання цифра ключа має бути %1.</source>
        <translation>A card of this key would not be read: the last digit of the key has to be %1.</translation>
    </message>
    <message>
        <source>Картка користувача</source>
        <translation>User card</translation>
    </message>
    <message>
        <source>Картка</source>
        <translation>Card</translation>
    </message>
    <message>
        <source>Перегляд перед друком</source>
        <translation>Print preview</translation>
    </message>
</context>
<context>
    <name>Veltab</name>
    <message>
        <source>Veltab  База:</source>
        <translation>Veltab  Database:</translation>
    </message>
    <message>
        <source>&amp;Увійти…</source>
        <translation>&amp;Log in…</translation>
    </message>
    <message>
        <source>&amp;Налаштування…</source>
        <translation>&amp;Settings…</translation>
    </message>
    <message>
        <source>Упр&amp;авління</source>
        <translation>&amp;Management</translation>
    </message>
    <message>
        <source>&amp;Таблиці</source>
        <translation>&amp;Tables</translation>
    </message>
    <message>
        <source>&amp;Звіти</source>
        <translation>&amp;Reports</translation>
    </message>
    <message>
        <source>&amp;Обмін</source>
        <translation>E&amp;xchange</translation>
    </message>
    <message>
        <source>&amp;Правка</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Експорт</source>
        <translation>Ex&amp;port</translation>
    </message>
    <message>
        <source>&amp;Імпорт</source>
        <translation>&amp;Import</translation>
    </message>
    <message>
        <source>&amp;Користувачі</source>
        <translation>&amp;Users</translation>
    </message>
    <message>
        <source>&amp;Сервіс</source>
        <translation>Ser&amp;vice</translation>
    </message>
    <message>
        <source>&amp;Довідка</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>Пр&amp;одаж, прийом, переміщення</source>
        <translation>&amp;Sale, goods in, transfer</translation>
    </message>
    <message>
        <source>Управління &amp;товарами</source>
        <translation>&amp;Goods management</translation>
    </message>
    <message>
        <source>&amp;Фінанси</source>
        <translation>&amp;Finance</translation>
    </message>
    <message>
        <source>Управління &amp;акціями</source>
        <translation>&amp;Promotion management</translation>
    </message>
    <message>
        <source>&amp;Магазини</source>
        <translation>&amp;Shops</translation>
    </message>
    <message>
        <source>&amp;Обладнання</source>
        <translation>&amp;Equipment</translation>
    </message>
    <message>
        <source>&amp;Пристрої</source>
        <translation>&amp;Devices</translation>
    </message>
    <message>
        <source>Групи м&amp;агазинів</source>
        <translation>Sh&amp;op groups</translation>
    </message>
    <message>
        <source>&amp;Товари</source>
        <translation>&amp;Goods</translation>
    </message>
    <message>
        <source>&amp;Групи товарів</source>
        <translation>Goods gro&amp;ups</translation>
    </message>
    <message>
        <source>Товари магазин&amp;ів</source>
        <translation>Goods i&amp;n shops</translation>
    </message>
    <message>
        <source>&amp;Клієнти</source>
        <translation>&amp;Clients</translation>
    </message>
    <message>
        <source>&amp;Знижки</source>
        <translation>D&amp;iscounts</translation>
    </message>
    <message>
        <source>Ак&amp;ції</source>
        <translation>&amp;Promotions</translation>
    </message>
    <message>
        <source>Т&amp;ранзакції</source>
        <translation>&amp;Transactions</translation>
    </message>
    <message>
        <source>Т&amp;ипи транзакцій</source>
        <translation>T&amp;ransaction types</translation>
    </message>
    <message>
        <source>&amp;Службові операції</source>
        <translation>Ser&amp;vice operations</translation>
    </message>
    <message>
        <source>&amp;Дні оновлення</source>
        <translation>Update da&amp;ys</translation>
    </message>
    <message>
        <source>&amp;Чеки</source>
        <translation>&amp;Receipts</translation>
    </message>
    <message>
        <source>&amp;Z-звіти</source>
        <translation>&amp;Z-reports</translation>
    </message>
    <message>
        <source>&amp;Артикульний звіт</source>
        <translation>&amp;Goods report</translation>
    </message>
    <message>
        <source>&amp;Статистика онлайн</source>
        <translation>&amp;On-line statistics</translation>
    </message>
    <message>
        <source>&amp;Автодозвін</source>
        <translation>&amp;Auto-dial</translation>
    </message>
    <message>
        <source>&amp;Імпорт клієнтів</source>
        <translation>&amp;Import of clients</translation>
    </message>
    <message>
        <source>&amp;Команди</source>
        <translation>&amp;Commands</translation>
    </message>
    <message>
        <source>&amp;Додати</source>
        <translation>&amp;Add</translation>
    </message>
    <message>
        <source>&amp;Редагувати</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Видалити</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>&amp;CSV</source>
        <translation>&amp;CSV</translation>
    </message>
    <message>
        <source>CSV &amp;UTF-8</source>
        <translation>CSV &amp;UTF-8</translation>
    </message>
    <message>
        <source>CSV &amp;Windows-1251</source>
        <translation>CSV &amp;Windows-1251</translation>
    </message>
    <message>
        <source>CSV UTF-8, &amp;табуляція</source>
        <translation>CSV UTF-8, &amp;tabs</translation>
    </message>
    <message>
        <source>&amp;Змінити пароль…</source>
        <translation>Change &amp;password…</translation>
    </message>
    <message>
        <source>&amp;Групи прав</source>
        <translation>Permission &amp;groups</translation>
    </message>
    <message>
        <source>&amp;Вихід</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>&amp;Підключитись до бази</source>
        <translation>&amp;Connect to the database</translation>
    </message>
    <message>
        <source>&amp;Створити таблиці</source>
        <translation>Create &amp;tables</translation>
    </message>
    <message>
        <source>&amp;Імпорт з попередньої версії</source>
        <translation>&amp;Import from the previous version</translation>
    </message>
    <message>
        <source>&amp;Про програму</source>
        <translation>&amp;About</translation>
    </message>
    <message>
        <source>Помилка з&apos;єднання з БД.</source>
        <translation>Database connection error.</translation>
    </message>
    <message>
        <source>Підключення до бази даних на %1:%2</source>
        <translation>Connecting to the database at %1:%2</translation>
    </message>
    <message>
        <source>Зєднання з БД всановлено.</source>
        <translation>Connected to the database.</translation>
    </message>
    <message>
        <source>Не вдалося створити базу даних.</source>
        <translation>The database could not be created.</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>File:</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Користувач</source>
        <translation>User</translation>
    </message>
    <message>
        <source>У вас немає доступу до бекофісу.</source>
        <translation>You have no access to the back office.</translation>
    </message>
    <message>
        <source>Ви впевнені?</source>
        <translation>Are you sure?</translation>
    </message>
    <message>
        <source>Невірні налаштування
можуть пошкодити дані в базі!</source>
        <translation>Wrong settings
can damage the data in the database!</translation>
    </message>
    <message>
        <source>Вкладки</source>
        <translation>Tabs</translation>
    </message>
    <message>
        <source>Про програму</source>
        <translation>About the program</translation>
    </message>
    <message>
        <source>Версія:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <source>Зібрано у версії Qt</source>
        <translation>Built with Qt version</translation>
    </message>
    <message>
        <source>Розробник:</source>
        <translation>Developer:</translation>
    </message>
    <message>
        <source>команда Veltab, підтримка у вашому головному офісі</source>
        <translation>the Veltab team, support at your head office</translation>
    </message>
    <message>
        <source>Перед виходом, закрийте всі вкладки!</source>
        <translation>Close all tabs before exiting!</translation>
    </message>
    <message>
        <source>ПРОГРАМА ОНОВЛЕНА
ДО ВЕРСІЇ
3. 0. 0. 17</source>
        <translation>THE PROGRAM IS UPDATED
TO VERSION
3. 0. 0. 17</translation>
    </message>
    <message>
        <source>П&amp;рискорити звіти…</source>
        <translation>Speed &amp;up reports…</translation>
    </message>
    <message>
        <source>Зберегти файл</source>
        <translation>Save file</translation>
    </message>
    <message>
        <source>csv (*.csv)</source>
        <translation>csv (*.csv)</translation>
    </message>
    <message>
        <source>Закр&amp;ити вкладку</source>
        <translation>Close &amp;tab</translation>
    </message>
    <message>
        <source>&amp;Закрити всі вкладки</source>
        <translation>&amp;Close all tabs</translation>
    </message>
    <message>
        <source>Зали&amp;шитись</source>
        <translation>&amp;Stay</translation>
    </message>
    <message>
        <source>Таблиці %1 зроблено без транзакцій: чек або зміна можуть записатися наполовину чи двічі. Адміністратор бази має перевести їх на InnoDB (ALTER TABLE … ENGINE=InnoDB), коли ніхто не продає.</source>
        <translation>The tables %1 are made without transactions: a receipt or a shift may be written by half or twice. The database administrator has to convert them to InnoDB (ALTER TABLE … ENGINE=InnoDB) while nobody sells.</translation>
    </message>
    <message>
        <source>Підкл&amp;ючитись знову</source>
        <translation>Reco&amp;nnect</translation>
    </message>
    <message>
        <source>Змі&amp;ни</source>
        <translation>S&amp;hifts</translation>
    </message>
    <message>
        <source>Податко&amp;ві групи</source>
        <translation>Ta&amp;x groups</translation>
    </message>
    <message>
        <source>Закрити вс&amp;і вкладки</source>
        <translation>Close &amp;all tabs</translation>
    </message>
    <message>
        <source>Зв&apos;язок із сервером відновлено.</source>
        <translation>The connection to the server is back.</translation>
    </message>
    <message>
        <source>Немає з&apos;єднання</source>
        <translation>Not connected</translation>
    </message>
    <message>
        <source>Зв&apos;язок втрачено</source>
        <translation>Connection lost</translation>
    </message>
    <message>
        <source>З&apos;єднано</source>
        <translation>Connected</translation>
    </message>
    <message>
        <source>Підключення…</source>
        <translation>Connecting…</translation>
    </message>
    <message>
        <source>&amp;Так</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>Ще триває: «%1».
Скасувати і вийти?</source>
        <translation>Still running: “%1”.
Cancel and leave?</translation>
    </message>
    <message>
        <source>&amp;Скасувати і вийти</source>
        <translation>&amp;Cancel and leave</translation>
    </message>
    <message>
        <source>&amp;Оновити список</source>
        <translation>&amp;Reload the list</translation>
    </message>
    <message>
        <source>&amp;XLSX (таблиця)</source>
        <translation>&amp;XLSX (spreadsheet)</translation>
    </message>
    <message>
        <source>Відкривши CSV, електронна таблиця зробить із «2.12» дату, а зі штрихкоду число без нулів спереду. З файлом XLSX (Експорт, Ctrl+Shift+X) цього не буде.</source>
        <translation>A spreadsheet that opens a CSV file makes a date of &quot;2.12&quot; and a number without leading zeros of a barcode. It does not do so with an XLSX file (Export, Ctrl+Shift+X).</translation>
    </message>
    <message>
        <source>Відкрити</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>&amp;Передачі між магазинами</source>
        <translation>&amp;Transfers between shops</translation>
    </message>
    <message>
        <source>Продаж</source>
        <translation>Sale</translation>
    </message>
    <message>
        <source>&amp;Огляд</source>
        <translation>O&amp;verview</translation>
    </message>
    <message>
        <source>Оновити</source>
        <translation>Reload</translation>
    </message>
    <message>
        <source>XLSX</source>
        <translation>XLSX</translation>
    </message>
    <message>
        <source>&amp;Панель інструментів</source>
        <translation>Tool &amp;bar</translation>
    </message>
    <message>
        <source>П&amp;еревірка даних</source>
        <translation>Check the &amp;data</translation>
    </message>
    <message>
        <source>&amp;Перейти до…</source>
        <translation>&amp;Go to…</translation>
    </message>
    <message>
        <source>&amp;Клавіші</source>
        <translation>&amp;Keys</translation>
    </message>
    <message>
        <source>Наступна вкладка</source>
        <translation>Next tab</translation>
    </message>
    <message>
        <source>Попередня вкладка</source>
        <translation>Previous tab</translation>
    </message>
    <message>
        <source>Видалити виділений запис, де це можна</source>
        <translation>Delete the selected record, where that is possible</translation>
    </message>
</context>
<context>
    <name>WeekDaysEdit</name>
    <message>
        <source>записано: «%1»</source>
        <translation>stored: “%1”</translation>
    </message>
</context>
<context>
    <name>WhyPrice</name>
    <message>
        <source>У цьому магазині товар не продається: його немає серед товарів магазину.</source>
        <translation>The item is not sold in this shop: it is not among the goods of the shop.</translation>
    </message>
    <message>
        <source>Товар заблоковано: продаж його не пропонує.</source>
        <translation>The item is blocked: the sale does not offer it.</translation>
    </message>
    <message>
        <source>Товар службової групи: продаж його не пропонує.</source>
        <translation>The item is of a service group: the sale does not offer it.</translation>
    </message>
    <message>
        <source>Товар з правилом «%1»: продаж його не пропонує.</source>
        <translation>The item has the rule “%1”: the sale does not offer it.</translation>
    </message>
    <message>
        <source>У чек товар узято за іншими умовами: ціна %1, знижка %2. Зміну буде названо перед оплатою.</source>
        <translation>The receipt took the item on other terms: price %1, discount %2. The change will be told before the payment.</translation>
    </message>
    <message>
        <source>діє</source>
        <translation>in force</translation>
    </message>
    <message>
        <source>нічого не змінює в ціні, такий її вид</source>
        <translation>changes nothing in the price, being of such a kind</translation>
    </message>
    <message>
        <source>ще не почалась</source>
        <translation>has not begun yet</translation>
    </message>
    <message>
        <source>вже закінчилась</source>
        <translation>has ended</translation>
    </message>
    <message>
        <source>не діє в ці години дня</source>
        <translation>not in force in these hours of the day</translation>
    </message>
    <message>
        <source>не діє в цей день тижня</source>
        <translation>not in force on this day of the week</translation>
    </message>
    <message>
        <source>Серед цін є такі, що мають період або день тижня: продаж на них не зважає.</source>
        <translation>Some of the prices have a period or a day of the week: the sale does not look at those.</translation>
    </message>
    <message>
        <source>Ціни немає: продати цей товар не можна.</source>
        <translation>There is no price: this item cannot be sold.</translation>
    </message>
    <message>
        <source>за штуку</source>
        <translation>a piece</translation>
    </message>
    <message>
        <source>за кілограм</source>
        <translation>a kilogram</translation>
    </message>
    <message>
        <source>Акції товару в цьому магазині не призначено.</source>
        <translation>No promotion is assigned to the item in this shop.</translation>
    </message>
    <message>
        <source>%1: %2. Її час: %3, %4, %5.</source>
        <translation>%1: %2. Its time: %3, %4, %5.</translation>
    </message>
    <message>
        <source>жодного дня тижня</source>
        <translation>no day of the week</translation>
    </message>
    <message>
        <source>%1 (код %2)</source>
        <translation>%1 (code %2)</translation>
    </message>
    <message>
        <source>%1, %2, пріоритет ціни %3</source>
        <translation>%1, %2, price priority %3</translation>
    </message>
</context>
<context>
    <name>WhyPriceOffer</name>
    <message>
        <source>Чому така ціна</source>
        <translation>Why this price</translation>
    </message>
    <message>
        <source>Спершу виберіть товар у списку.</source>
        <translation>Choose an item in the list first.</translation>
    </message>
    <message>
        <source>Яка ціна товару діє в магазині й чому (%1)</source>
        <translation>Which price of the item is in force in a shop, and why (%1)</translation>
    </message>
</context>
<context>
    <name>XlsxExport</name>
    <message>
        <source>Список</source>
        <translation>List</translation>
    </message>
    <message>
        <source>він вийшов неповним, перевірте вільне місце на диску.</source>
        <translation>it came out incomplete, check the free space of the disk.</translation>
    </message>
    <message>
        <source>Разом</source>
        <translation>Total</translation>
    </message>
    <message>
        <source>У теці %1 не записується тимчасовий файл: %2</source>
        <translation>A temporary file cannot be written in %1: %2</translation>
    </message>
    <message>
        <source>У файл XLSX вміщується не більше ніж %1 рядків, у списку їх %2. Звузьте умови або збережіть список у CSV.</source>
        <translation>An XLSX file has room for %1 rows at most, the list has %2. Narrow the conditions or save the list as CSV.</translation>
    </message>
</context>
<context>
    <name>connection</name>
    <message>
        <source>Помилка запиту:</source>
        <translation>Query error:</translation>
    </message>
    <message>
        <source>Сервер не дозволив сеансове налаштування:</source>
        <translation>The server refused a session setting:</translation>
    </message>
    <message>
        <source>Помилка з&apos;єднання з БД.</source>
        <translation>Database connection error.</translation>
    </message>
    <message>
        <source>Сервер не шифрує з&apos;єднання, а налаштування вимагають шифрування.</source>
        <translation>The server does not encrypt the connection, but the settings require encryption.</translation>
    </message>
</context>
<context>
    <name>qtabdevices</name>
    <message>
        <source>не вказано</source>
        <translation>not specified</translation>
    </message>
    <message>
        <source>Назва пристрою</source>
        <translation>Name of the device</translation>
    </message>
    <message>
        <source>Тип пристрою</source>
        <translation>Device type</translation>
    </message>
    <message>
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>назва або тип пристрою</source>
        <translation>name or type of the device</translation>
    </message>
</context>
<context>
    <name>setting</name>
    <message>
        <source>Налаштування</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>База дани&amp;х</source>
        <translation>Da&amp;tabase</translation>
    </message>
    <message>
        <source>&amp;Сервер:</source>
        <translation>Se&amp;rver:</translation>
    </message>
    <message>
        <source>&amp;Порт:</source>
        <translation>&amp;Port:</translation>
    </message>
    <message>
        <source>Ім&apos;я &amp;користувача:</source>
        <translation>&amp;User name:</translation>
    </message>
    <message>
        <source>П&amp;ароль:</source>
        <translation>Pass&amp;word:</translation>
    </message>
    <message>
        <source>&amp;База даних:</source>
        <translation>&amp;Database:</translation>
    </message>
    <message>
        <source>&amp;Драйвер:</source>
        <translation>Dri&amp;ver:</translation>
    </message>
    <message>
        <source>QDB2</source>
        <translation>QDB2</translation>
    </message>
    <message>
        <source>QIBASE</source>
        <translation>QIBASE</translation>
    </message>
    <message>
        <source>QMYSQL</source>
        <translation>QMYSQL</translation>
    </message>
    <message>
        <source>QOCI</source>
        <translation>QOCI</translation>
    </message>
    <message>
        <source>QODBC</source>
        <translation>QODBC</translation>
    </message>
    <message>
        <source>QPSQL</source>
        <translation>QPSQL</translation>
    </message>
    <message>
        <source>QSQLITE</source>
        <translation>QSQLITE</translation>
    </message>
    <message>
        <source>QSQLITE2</source>
        <translation>QSQLITE2</translation>
    </message>
    <message>
        <source>QTDS</source>
        <translation>QTDS</translation>
    </message>
    <message>
        <source>Інтер&amp;фейс</source>
        <translation>Inter&amp;face</translation>
    </message>
    <message>
        <source>Файл &amp;мови:</source>
        <translation>&amp;Language file:</translation>
    </message>
    <message>
        <source>&amp;Вибрати…</source>
        <translation>&amp;Browse…</translation>
    </message>
    <message>
        <source>Вибрати файл мови</source>
        <translation>Choose the language file</translation>
    </message>
    <message>
        <source>С&amp;тиль:</source>
        <translation>St&amp;yle:</translation>
    </message>
    <message>
        <source>Кількість &amp;повідомлень:</source>
        <translation>Number of &amp;messages:</translation>
    </message>
    <message>
        <source>Префікс &amp;картки користувача:</source>
        <translation>User &amp;card prefix:</translation>
    </message>
    <message>
        <source>Зовні&amp;шні програми</source>
        <translation>E&amp;xternal programs</translation>
    </message>
    <message>
        <source>Замість [{IP}] у параметрах буде підставлено IP адресу магазину або каси.</source>
        <translation>[{IP}] in the parameters is replaced by the IP address of the shop or cash register.</translation>
    </message>
    <message>
        <source>&amp;Тип пристрою для прикладу:</source>
        <translation>&amp;Device type for the example:</translation>
    </message>
    <message>
        <source>Відеосервер Avtech</source>
        <translation>Avtech video server</translation>
    </message>
    <message>
        <source>NAS-PC</source>
        <translation>NAS-PC</translation>
    </message>
    <message>
        <source>NVR-Hikvision</source>
        <translation>NVR-Hikvision</translation>
    </message>
    <message>
        <source>інше</source>
        <translation>other</translation>
    </message>
    <message>
        <source>Магазин, права кнопка миші</source>
        <translation>Shop, right mouse button</translation>
    </message>
    <message>
        <source>Програма &amp;1:</source>
        <translation>Program &amp;1:</translation>
    </message>
    <message>
        <source>Вибрати програму: Магазин, права кнопка миші</source>
        <translation>Choose the program: Shop, right mouse button</translation>
    </message>
    <message>
        <source>Параметри &amp;4:</source>
        <translation>Parameters &amp;4:</translation>
    </message>
    <message>
        <source>Каса, права кнопка миші</source>
        <translation>Cash register, right mouse button</translation>
    </message>
    <message>
        <source>Програма &amp;2:</source>
        <translation>Program &amp;2:</translation>
    </message>
    <message>
        <source>В&amp;ибрати…</source>
        <translation>B&amp;rowse…</translation>
    </message>
    <message>
        <source>Вибрати програму: Каса, права кнопка миші</source>
        <translation>Choose the program: Cash register, right mouse button</translation>
    </message>
    <message>
        <source>Параметри &amp;5:</source>
        <translation>Parameters &amp;5:</translation>
    </message>
    <message>
        <source>Каса, рух лівою кнопкою миші</source>
        <translation>Cash register, drag with the left mouse button</translation>
    </message>
    <message>
        <source>Програма &amp;3:</source>
        <translation>Program &amp;3:</translation>
    </message>
    <message>
        <source>Ви&amp;брати…</source>
        <translation>Br&amp;owse…</translation>
    </message>
    <message>
        <source>Вибрати програму: Каса, рух лівою кнопкою миші</source>
        <translation>Choose the program: Cash register, drag with the left mouse button</translation>
    </message>
    <message>
        <source>Параметри &amp;6:</source>
        <translation>Parameters &amp;6:</translation>
    </message>
    <message>
        <source>Оновле&amp;ння та вхід</source>
        <translation>Update and lo&amp;gin</translation>
    </message>
    <message>
        <source>Автоматично &amp;оновлювати програму</source>
        <translation>Update the program &amp;automatically</translation>
    </message>
    <message>
        <source>Режим &amp;передачі</source>
        <translation>Transfer &amp;mode</translation>
    </message>
    <message>
        <source>&amp;Версія:</source>
        <translation>&amp;Version:</translation>
    </message>
    <message>
        <source>Запам&apos;ятований &amp;логін:</source>
        <translation>Remembered &amp;login:</translation>
    </message>
    <message>
        <source>Запам&apos;ятований &amp;ідентифікатор:</source>
        <translation>Remembered &amp;identifier:</translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Відмінити</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Не вдалося завантажити криптографічну бібліотеку.</source>
        <translation>The cryptographic library could not be loaded.</translation>
    </message>
    <message>
        <source>Це означає що пароль буде збережено без шифрування</source>
        <translation>This means that the password will be saved without encryption</translation>
    </message>
    <message>
        <source>та не вдасться розшифрувати вже зашифрований пароль в налаштуваннях!</source>
        <translation>and that a password already encrypted in the settings cannot be decrypted!</translation>
    </message>
    <message>
        <source>Помилка виклику фунції розшифровки паолю</source>
        <translation>Error when calling the password decryption function</translation>
    </message>
    <message>
        <source>Помилка виклику фунції шифрування паолю</source>
        <translation>Error when calling the password encryption function</translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation>Warning.</translation>
    </message>
    <message>
        <source>Не вдалося записати файл налаштувань:
%1
Зміни діятимуть лише до закриття програми. Щоб зберегти їх, дозвольте запис у цей каталог і збережіть налаштування ще раз.</source>
        <translation>The settings file could not be written:
%1
The changes last only until the program is closed. To keep them, allow writing to this folder and save the settings again.</translation>
    </message>
    <message>
        <source>Вибрати файл мови.</source>
        <translation>Choose the language file.</translation>
    </message>
    <message>
        <source>Файл перекладу (*.qm)</source>
        <translation>Translation file (*.qm)</translation>
    </message>
    <message>
        <source>Вибрати програму.</source>
        <translation>Choose the program.</translation>
    </message>
    <message>
        <source>Зах&amp;ист з&apos;єднання (TLS):</source>
        <translation>E&amp;ncryption (TLS):</translation>
    </message>
    <message>
        <source>С&amp;ертифікати, яким вірити:</source>
        <translation>T&amp;rusted certificates:</translation>
    </message>
    <message>
        <source>Вибрати файл сертифікатів</source>
        <translation>Choose the file of certificates</translation>
    </message>
    <message>
        <source>ні</source>
        <translation>no</translation>
    </message>
    <message>
        <source>якщо сервер уміє</source>
        <translation>when the server can</translation>
    </message>
    <message>
        <source>лише захищене</source>
        <translation>encrypted only</translation>
    </message>
    <message>
        <source>Сертифікати (*.pem *.crt)</source>
        <translation>Certificates (*.pem *.crt)</translation>
    </message>
    <message>
        <source>Зміни не збережено.</source>
        <translation>The changes are not saved.</translation>
    </message>
    <message>
        <source>Закрити без збереження</source>
        <translation>Close without saving</translation>
    </message>
    <message>
        <source>Продовжити редагування</source>
        <translation>Go on editing</translation>
    </message>
</context>
</TS>
