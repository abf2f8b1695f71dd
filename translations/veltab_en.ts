<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="uk">
<context>
    <name>Db</name>
    <message>
        <source>Значення запиту не відповідають його місцям.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не має даних після запиту</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EditDialog</name>
    <message>
        <source>Попередження.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Додавання нового запису</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Редагування запису №</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Launch</name>
    <message>
        <source>Попередження.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка в IP адресі</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка запуску зовнішньої програми.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не вірний шлях до програми:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ListWorker</name>
    <message>
        <source>Немає зв&apos;язку з базою даних.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QChangPass</name>
    <message>
        <source>Зміна пароля</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Поточний пароль:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Новий пароль:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Новий пароль &amp;ще раз:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Змінити</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>За&amp;крити</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Попередження</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка запиту</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Нові паролі не співпадають!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Новий пароль не може бути пустим!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Поточний пароль не вірний!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Цей пароль використати не можна. Оберіть інший пароль.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QLoadedUser</name>
    <message>
        <source>Користувача не знайдено!
Перезавантажте програму!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Id параметру виходить за межі списку!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Користувача не знайдено!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QQestion</name>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ТАК [Enter]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ВІДМІНИТИ [Bakspace]</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QSelUser</name>
    <message>
        <source>Введіть дані користувача</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Користувач:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Пароль або картка:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Вхід к&amp;арткою</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Запам&apos;ятати</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Відмінити</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не вдалося записати файл налаштувань:
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Попередження</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Імя користувача не може бути пустим</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Невірний ідентифікатор</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QTab</name>
    <message>
        <source>Помилка при запиті отримання максимального розміру поля</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>в таблиці</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка запиту.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Список не прочитано: сервер відповів помилкою.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Пошук…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Записів ще немає.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>За цими умовами нічого не знайдено.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Записів: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Повне оновлення таблиці</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Оновлення одного запису id=</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка при зчитуванні запису.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Запис не знайдено в базі!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Зміни не внесені, відмінено користувачем!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Запис не додано, відмінено користувачем!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QTabDelegate</name>
    <message>
        <source>Назва</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Код</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Поле не може бути пустим.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Такий запис вже існує в базі!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка оновлення запису.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QTableBase</name>
    <message>
        <source>Помилка створення таблиці</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка запиту:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Зачекайте. Створюються таблиці.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Перезавантажте програму!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка ініціалізації таблиці</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;Ні&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;Так&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;Знижка&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;Бонус&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;Ваговий&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&apos;Штучний&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Магазини</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Обладнання</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Групи магазинів</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Товари</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Групи товарів</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Товари магазинів</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Клієнти</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Знижки</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Акції</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Транзакції</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Типи транзакцій</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Зміни</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Службові операції</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Дні оновлення</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Податкові групи</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Пристрої</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Видалення заборонене!!!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка отримання кількості записів у таблиц</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка отримання кількості змінених / оновлених записів</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>В таблиці</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> виконано:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> записів:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QUpdateBD</name>
    <message>
        <source>Немає даних після запиту</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Створіть таблиці та перезапустіть програму.Не знайдено таблицю</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка оновлення запису в таблиці</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка запиту на здійснене оновленя таблиці.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Screenshots</name>
    <message>
        <source>Ви впевнені?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Невірні налаштування
можуть пошкодити дані в базі!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Veltab</name>
    <message>
        <source>Veltab  База:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Увійти…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Підключитись знову</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Налаштування…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Упр&amp;авління</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Таблиці</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Звіти</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Обмін</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Правка</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Експорт</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Імпорт</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Користувачі</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Сервіс</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Довідка</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Пр&amp;одаж, прийом, переміщення</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Управління &amp;товарами</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Фінанси</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Управління &amp;акціями</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Магазини</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Обладнання</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Пристрої</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Групи м&amp;агазинів</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Товари</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Групи товарів</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Товари магазин&amp;ів</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Клієнти</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Знижки</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ак&amp;ції</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Т&amp;ранзакції</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Т&amp;ипи транзакцій</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Зміни</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Службові операції</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Дні оновлення</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Подат&amp;кові групи</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Чеки</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Z-звіти</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Артикульний звіт</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Статистика онлайн</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Автодозвін</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Імпорт клієнтів</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Команди</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Додати</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Редагувати</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Видалити</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV &amp;UTF-8</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV &amp;Windows-1251</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV UTF-8, &amp;табуляція</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Змінити пароль…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Групи прав</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Вихід</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Підключитись до бази</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Створити таблиці</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Імпорт з попередньої версії</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Про програму</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка з&apos;єднання з БД.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Підключення до бази даних на %1:%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Зєднання з БД всановлено.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не вдалося створити базу даних.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Немає зв&apos;язку з базою даних. Перевірте налаштування або мережу і підключіться знову.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Таблиці не створено. Перевірте права користувача бази і підключіться знову.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>На сервері немає бази даних «%1».
Створити її та таблиці програми?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>У базі даних «%1» немає таблиць програми.
Створити таблиці?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Створити?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>База даних не готова: таблиць програми немає.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Зачекайте. Створюються таблиці.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Перед входом закрийте всі вкладки!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Користувач не увійшов.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Користувач</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>У вас немає доступу до бекофісу.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Нові налаштування бази почнуть діяти, коли ви закриєте всі вкладки і увійдете знову.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ви впевнені?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Невірні налаштування
можуть пошкодити дані в базі!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Вкладки</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Продаж</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Про програму</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Версія:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Зібрано у версії Qt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Розробник:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>команда Veltab, підтримка у вашому головному офісі</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Перед виходом, закрийте всі вкладки!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ПРОГРАМА ОНОВЛЕНА
ДО ВЕРСІЇ
3. 0. 0. 17</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>connection</name>
    <message>
        <source>Помилка запиту:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Сервер не дозволив сеансове налаштування:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка з&apos;єднання з БД.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>setting</name>
    <message>
        <source>Налаштування</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>База дани&amp;х</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Сервер:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Порт:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ім&apos;я &amp;користувача:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>П&amp;ароль:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;База даних:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Драйвер:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QDB2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QIBASE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QMYSQL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QOCI</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QODBC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QPSQL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QSQLITE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QSQLITE2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QTDS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Інтер&amp;фейс</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Файл &amp;мови:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Вибрати…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Вибрати файл мови</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>С&amp;тиль:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Кількість &amp;повідомлень:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Префікс &amp;картки користувача:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Зовні&amp;шні програми</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Замість [{IP}] у параметрах буде підставлено IP адресу магазину або каси.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Тип пристрою для прикладу:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Відеосервер Avtech</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NAS-PC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NVR-Hikvision</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>інше</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Магазин, права кнопка миші</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Програма &amp;1:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Вибрати програму: Магазин, права кнопка миші</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Параметри &amp;4:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Каса, права кнопка миші</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Програма &amp;2:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>В&amp;ибрати…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Вибрати програму: Каса, права кнопка миші</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Параметри &amp;5:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Каса, рух лівою кнопкою миші</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Програма &amp;3:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ви&amp;брати…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Вибрати програму: Каса, рух лівою кнопкою миші</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Параметри &amp;6:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Оновле&amp;ння та вхід</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Автоматично &amp;оновлювати програму</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Режим &amp;передачі</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Версія:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Запам&apos;ятований &amp;логін:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Запам&apos;ятований &amp;ідентифікатор:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Зберегти</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Відмінити</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Esc</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не вдалося завантажити криптографічну бібліотеку.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Це означає що пароль буде збережено без шифрування</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>та не вдасться розшифрувати вже зашифрований пароль в налаштуваннях!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка виклику фунції розшифровки паолю</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Помилка виклику фунції шифрування паолю</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Попередження.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не вдалося записати файл налаштувань:
%1
Зміни діятимуть лише до закриття програми. Щоб зберегти їх, дозвольте запис у цей каталог і збережіть налаштування ще раз.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Вибрати файл мови.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Файл перекладу (*.qm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Вибрати програму.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
