-- The orders of a small trader in timber and boat fittings. samples/harbour.db holds the same for SQLite.
CREATE TABLE Customers (
    CustomerID INTEGER PRIMARY KEY,
    CustomerName VARCHAR(60) NOT NULL,
    Street VARCHAR(60),
    Postcode VARCHAR(12),
    Town VARCHAR(40),
    IsTrade BOOLEAN NOT NULL
);
CREATE TABLE Employees (
    EmployeeID INTEGER PRIMARY KEY,
    EmployeeName VARCHAR(60) NOT NULL
);
CREATE TABLE Products (
    ProductID VARCHAR(20) PRIMARY KEY,
    ProductName VARCHAR(60) NOT NULL,
    UnitPrice DECIMAL(8, 2) NOT NULL,
    InStock INTEGER NOT NULL
);
CREATE TABLE Orders (
    OrderNumber VARCHAR(12) PRIMARY KEY,
    OrderDate DATE NOT NULL,
    CustomerID INTEGER NOT NULL REFERENCES Customers,
    EmployeeID INTEGER REFERENCES Employees,
    RequiredDate DATE,
    Paid BOOLEAN NOT NULL,
    Freight DECIMAL(8, 2),
    Remarks TEXT
);
CREATE TABLE OrderLines (
    OrderNumber VARCHAR(12) NOT NULL REFERENCES Orders,
    LineNumber INTEGER NOT NULL,
    ProductID VARCHAR(20) NOT NULL REFERENCES Products,
    Quantity INTEGER NOT NULL,
    UnitPrice DECIMAL(8, 2) NOT NULL,
    PRIMARY KEY (OrderNumber, LineNumber)
);
CREATE VIEW OpenOrders AS
    SELECT OrderNumber, CustomerName, RequiredDate FROM Orders JOIN Customers USING (CustomerID) WHERE NOT Paid;

INSERT INTO Customers VALUES
    (41, 'Måns & Sons Boatyard', '7 Slipway Road', 'SO31 4QF', 'Hamble', 1),
    (42, 'Abigail Thorne', '2 Anchor Cottages', 'PO18 8HU', 'Bosham', 0),
    (43, 'Estuary Joinery', '19 Quay Street', 'PL20 6AA', 'Calstock', 1);
INSERT INTO Employees VALUES (3, 'Tom Ashdown'), (4, 'Ruth Okafor');
INSERT INTO Products VALUES
    ('CL-200', 'Cleat, stainless, 200 mm', 18.40, 74),
    ('LA-25-200-4', 'Larch plank, 25 × 200 × 4000 mm', 31.95, 120),
    ('RO-12', 'Rope, 12 mm, by the metre', 1.85, 900);
INSERT INTO Orders VALUES
    ('2024-0187', '2024-05-14', 41, 3, '2024-05-28', 0, 64.00, 'Please pack the cleats apart from the planks.'),
    ('2024-0188', '2024-05-15', 42, 4, NULL, 1, 6.50, NULL),
    ('2024-0189', '2024-05-15', 43, 3, '2024-06-03', 0, 1140.00, 'Deliver to the upper quay.');
INSERT INTO OrderLines VALUES
    ('2024-0187', 1, 'CL-200', 12, 18.40),
    ('2024-0187', 2, 'LA-25-200-4', 30, 31.95),
    ('2024-0188', 1, 'RO-12', 40, 1.85),
    ('2024-0189', 1, 'LA-25-200-4', 400, 29.90),
    ('2024-0189', 2, 'CL-200', 24, 17.50),
    ('2024-0189', 3, 'RO-12', 150, 1.70);
