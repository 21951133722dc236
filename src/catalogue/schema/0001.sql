-- The catalogue's seven tables. Texts compare without regard to case, with regard to accents.

CREATE TABLE tblContacts (
    RecordID INTEGER PRIMARY KEY AUTOINCREMENT,
    Selected TEXT(1) COLLATE DAO DEFAULT ' ',
    SongName TEXT(255) COLLATE DAO,
    Artist TEXT(255) COLLATE DAO,
    ID TEXT(10) COLLATE DAO,
    BPM TEXT(5) COLLATE DAO,
    Composer TEXT(255) COLLATE DAO,
    AlbumName TEXT(255) COLLATE DAO,
    Genre TEXT(255) COLLATE DAO,
    Bitrate TEXT(20) COLLATE DAO,
    Duration TEXT(8) COLLATE DAO,
    TrackText TEXT(10) COLLATE DAO,
    TrackNum DOUBLE,
    FileSize TEXT(20) COLLATE DAO,
    FileSizeNum DOUBLE,
    FileType TEXT(4) COLLATE DAO,
    PathName TEXT(255) COLLATE DAO,
    FileName TEXT(255) COLLATE DAO,
    Rating TEXT(255) COLLATE DAO,
    Year TEXT(10) COLLATE DAO,
    PurchaseDate DATETIME TEXT,
    Date2_Desc TEXT(255) COLLATE DAO,
    Date2 DATETIME TEXT,
    MiscField1_Desc TEXT(255) COLLATE DAO,
    MiscField1 TEXT(255) COLLATE DAO,
    MiscField2_Desc TEXT(255) COLLATE DAO,
    MiscField2 TEXT(255) COLLATE DAO,
    MiscField3_Desc TEXT(255) COLLATE DAO,
    MiscField3 TEXT(255) COLLATE DAO,
    Code TEXT(255) COLLATE DAO,
    DateUpdated DATETIME TEXT,
    Notes MEMO TEXT COLLATE DAO,
    PicturePath1 TEXT(255) COLLATE DAO,
    PicturePath2 TEXT(255) COLLATE DAO,
    PicturePath3 TEXT(255) COLLATE DAO,
    PicturePath4 TEXT(255) COLLATE DAO,
    PicturePath5 TEXT(255) COLLATE DAO,
    PicturePath6 TEXT(255) COLLATE DAO,
    PicturePath7 TEXT(255) COLLATE DAO,
    PicturePath8 TEXT(255) COLLATE DAO,
    Lyrics MEMO TEXT COLLATE DAO,
    Credits MEMO TEXT COLLATE DAO
);

CREATE TABLE tblSettings (
    Type TEXT(255) COLLATE DAO,
    Name TEXT(255) COLLATE DAO,
    Setting1 TEXT(255) COLLATE DAO,
    Setting2 TEXT(255) COLLATE DAO,
    Setting3 TEXT(255) COLLATE DAO,
    Setting4 TEXT(255) COLLATE DAO,
    Setting5 TEXT(255) COLLATE DAO,
    Setting6 TEXT(255) COLLATE DAO,
    Setting7 TEXT(255) COLLATE DAO,
    Setting8 MEMO TEXT COLLATE DAO
);

CREATE TABLE tblCategoryDesc (
    CategoryNumber INTEGER PRIMARY KEY AUTOINCREMENT,
    CategoryDesc TEXT(255) COLLATE DAO
);

CREATE TABLE tblCategoryID (
    ID INTEGER,
    CategoryNumber INTEGER
);

CREATE TABLE tblPlayListHeader (
    ListID INTEGER PRIMARY KEY AUTOINCREMENT,
    ListName TEXT(255) COLLATE DAO,
    Notes MEMO TEXT COLLATE DAO,
    LastUpdated DATETIME TEXT
);

CREATE TABLE tblPlayListDetail (
    ListID INTEGER,
    ListTrackID INTEGER,
    ContactRecordID INTEGER,
    SongTitle TEXT(255) COLLATE DAO,
    ArtistName TEXT(255) COLLATE DAO,
    AlbumName TEXT(255) COLLATE DAO,
    Track TEXT(255) COLLATE DAO,
    Rating TEXT(255) COLLATE DAO,
    Year TEXT(255) COLLATE DAO,
    Duration TEXT(255) COLLATE DAO,
    FileName TEXT(511) COLLATE DAO,
    Notes MEMO TEXT COLLATE DAO,
    LastUpdated DATETIME TEXT
);

CREATE TABLE tblOrphanFileNames (
    RecordIdOrphan INTEGER
);

INSERT INTO sysQueries (Name, SQL) VALUES ('qryContacts',
    'SELECT tblContacts.*, tblCategoryID.CategoryNumber FROM tblContacts LEFT JOIN tblCategoryID ON tblContacts.RecordID = tblCategoryID.ID');
