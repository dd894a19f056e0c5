<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="uk">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>Повні дані GPS (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>Формат GPX (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>Трек OziExplorer (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Трек Google Earth (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>Видобування даних GPS</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>VrkTrk</source>
        <translation>VrkTrk</translation>
    </message>
    <message>
        <source>Выберите этот вормат для передачи данных GPS в программу OziExplorer</source>
        <translation>Виберіть цей формат, щоб використати дані GPS у програмі OziExplorer</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>Трек OziExplorer (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>Вихідний файл міститиме всі повідомлення приймача GPS, наявні в архіві.</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>Повні дані GPS (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>Формат, створений для обміну даними GPS між програмами.&lt;br&gt;Його підтримує найбільше програм.</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>Формат GPX (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>Виберіть цей формат, щоб переглянути трек GPS у Google Earth або на сайті https://maps.google.com/</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>KML для Google Earth (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;Виберіть формат треку GPS&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Потрібний формат залежить від вашої програми. Перевірте в її довідці, які формати вона підтримує.&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>Відкрити</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>Файли VRK3 (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Зберегти</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>Файл %s не знайдено. Будь ласка, перевстановіть програму.</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>Мінімізувати</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>Максимізувати</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>Закрити</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>Відновити</translation>
    </message>
</context>
</TS>
